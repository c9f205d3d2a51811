// SPDX-License-Identifier: BSD-3-Clause
// The floor of the side-by-side benchmark: the same work in plain calls of the library, into memory
// of malloc; with the argument "huge", into memory that asks for huge pages, which is the limit.
// It also makes the files that are read, and reads those that others wrote.
#include "bench/worker.h"

#include <netcdf.h>

#include <sys/mman.h>

#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <vector>

namespace {

using bench::checksum;
using bench::Done;
using bench::Job;
using bench::positionOf;
using bench::Stopwatch;

bool wantHugePages = false;

void check(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(nc_strerror(status));
}

template <class T> std::shared_ptr<T> fresh(std::size_t count)
{
    constexpr std::size_t hugePage = std::size_t{2} << 20;
    const std::size_t bytes = count * sizeof(T);
    void* memory = nullptr;
    if (wantHugePages && bytes >= hugePage) {
        const std::size_t rounded = (bytes + hugePage - 1) / hugePage * hugePage;
        memory = std::aligned_alloc(hugePage, rounded);
        static_cast<void>(madvise(memory, rounded, MADV_HUGEPAGE));
    } else {
        memory = std::malloc(bytes);
    }
    return {static_cast<T*>(memory), [](T* block) { std::free(block); }};
}

class File {
public:
    explicit File(const std::string& path) { check(nc_open(path.c_str(), NC_NOWRITE, &ncid_)); }
    explicit File(const Job& job)
    {
        check(
            nc_create(job.path.c_str(), job.format == "netcdf4" ? NC_NETCDF4 : NC_CLOBBER, &ncid_));
    }
    ~File() { static_cast<void>(nc_close(ncid_)); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int id() const { return ncid_; }

private:
    int ncid_ = -1;
};

template <class T> Done finish(double seconds, std::shared_ptr<T> values, std::size_t count)
{
    return {seconds, [=] { return checksum(values.get(), count); }};
}

Done finish(double seconds, double sum)
{
    return {seconds, [=] { return sum; }};
}

// --- Files to be read

double valueAt(std::size_t i) { return static_cast<double>(i % 1009) * 0.25; }
short shortAt(std::size_t i) { return static_cast<short>(i % 1009); }
char letterAt(std::size_t i) { return static_cast<char>('a' + i % 26); }

// A field of count / 65536 levels of 256 by 256.
int defineField(int ncid, nc_type xtype, std::size_t count)
{
    int dimids[3];
    check(nc_def_dim(ncid, "z", count / 65536, &dimids[0]));
    check(nc_def_dim(ncid, "y", 256, &dimids[1]));
    check(nc_def_dim(ncid, "x", 256, &dimids[2]));
    int varid = 0;
    check(nc_def_var(ncid, "v", xtype, 3, dimids, &varid));
    return varid;
}

template <class T, class Write>
Done makeField(const Job& job, nc_type xtype, T (*at)(std::size_t), bool isPacked, Write write)
{
    const Stopwatch watch;
    const File file(job);
    const int varid = defineField(file.id(), xtype, job.count);
    if (isPacked) {
        const std::size_t chunk[] = {1, 256, 256};
        check(nc_def_var_chunking(file.id(), varid, NC_CHUNKED, chunk));
        check(nc_def_var_deflate(file.id(), varid, 1, 1, 1));
    }
    int before = 0;
    check(nc_set_fill(file.id(), NC_NOFILL, &before));
    check(nc_enddef(file.id()));
    const auto values = fresh<T>(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values.get()[i] = at(i);
    check(write(file.id(), varid, values.get()));
    return finish(watch.seconds(), 0);
}

Done makeDouble(const Job& job)
{
    return makeField(job, NC_DOUBLE, valueAt, false, nc_put_var_double);
}
Done makePacked(const Job& job)
{
    return makeField(job, NC_FLOAT, valueAt, true, nc_put_var_double);
}
Done makeShort(const Job& job)
{
    return makeField(job, NC_SHORT, shortAt, false, nc_put_var_short);
}
Done makeText(const Job& job) { return makeField(job, NC_CHAR, letterAt, false, nc_put_var_text); }

// A long vector "v" with two attributes, and ten small variables.
Done makeSmall(const Job& job)
{
    const Stopwatch watch;
    const File file(job);
    int dimid = 0;
    check(nc_def_dim(file.id(), "n", job.count, &dimid));
    int varid = 0;
    check(nc_def_var(file.id(), "v", NC_DOUBLE, 1, &dimid, &varid));
    const double range[] = {-90, 90};
    check(nc_put_att_text(file.id(), varid, "units", 13, "degrees_north"));
    check(nc_put_att_double(file.id(), varid, "valid_range", NC_DOUBLE, 2, range));
    check(nc_def_dim(file.id(), "x", 4, &dimid));
    for (int i = 1; i <= 10; ++i) {
        int other = 0;
        const std::string name = "v" + std::to_string(i);
        check(nc_def_var(file.id(), name.c_str(), NC_INT, 1, &dimid, &other));
    }
    check(nc_enddef(file.id()));
    std::vector<double> values(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values[i] = valueAt(i);
    check(nc_put_var_double(file.id(), varid, values.data()));
    return finish(watch.seconds(), 0);
}

// --- Large reads and writes

template <class T, class Read> Done readWhole(const Job& job, Read read)
{
    const File file(job.path);
    const Stopwatch watch;
    auto values = fresh<T>(job.count);
    check(read(file.id(), 0, values.get()));
    return finish(watch.seconds(), std::move(values), job.count);
}

Done readDouble(const Job& job) { return readWhole<double>(job, nc_get_var_double); }
Done readFloat(const Job& job) { return readWhole<float>(job, nc_get_var_float); }
Done readShort(const Job& job) { return readWhole<short>(job, nc_get_var_short); }
Done readText(const Job& job) { return readWhole<char>(job, nc_get_var_text); }

// Every second value of both directions, of count levels.
Done readStrided(const Job& job)
{
    const File file(job.path);
    const std::size_t start[] = {0, 0, 0};
    const std::size_t count[] = {job.count, 128, 128};
    const std::ptrdiff_t stride[] = {1, 2, 2};
    const Stopwatch watch;
    auto values = fresh<double>(job.count * 128 * 128);
    check(nc_get_vars_double(file.id(), 0, start, count, stride, values.get()));
    return finish(watch.seconds(), std::move(values), job.count * 128 * 128);
}

template <class T, class Write>
Done writeWhole(const Job& job, nc_type xtype, T (*at)(std::size_t), int fillMode, Write write)
{
    std::vector<T> values(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values[i] = at(i);
    const Stopwatch watch;
    {
        const File file(job);
        const int varid = defineField(file.id(), xtype, job.count);
        int before = 0;
        check(nc_set_fill(file.id(), fillMode, &before));
        check(nc_enddef(file.id()));
        check(write(file.id(), varid, values.data()));
    }
    return finish(watch.seconds(), 0);
}

Done writeDouble(const Job& job)
{
    return writeWhole(job, NC_DOUBLE, valueAt, NC_FILL, nc_put_var_double);
}
Done writeWithoutFill(const Job& job)
{
    return writeWhole(job, NC_DOUBLE, valueAt, NC_NOFILL, nc_put_var_double);
}
Done writeText(const Job& job)
{
    return writeWhole(job, NC_CHAR, letterAt, NC_FILL, nc_put_var_text);
}

// --- Small calls

Done readValues(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i) {
        const std::size_t start = positionOf(i);
        double value = 0;
        check(nc_get_var1_double(file.id(), 0, &start, &value));
        sum += value;
    }
    return finish(watch.seconds(), sum);
}

Done readBlocks(const Job& job)
{
    const File file(job.path);
    const std::size_t length = 100;
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i) {
        const std::size_t start = positionOf(i);
        double values[length];
        check(nc_get_vara_double(file.id(), 0, &start, &length, values));
        sum += values[0];
    }
    return finish(watch.seconds(), sum);
}

Done appendRecords(const Job& job)
{
    const double row[] = {0, 1, 2, 3, 4, 5, 6, 7, 8, 9};
    const Stopwatch watch;
    {
        const File file(job);
        int dimids[2];
        check(nc_def_dim(file.id(), "time", NC_UNLIMITED, &dimids[0]));
        check(nc_def_dim(file.id(), "x", 10, &dimids[1]));
        int varid = 0;
        check(nc_def_var(file.id(), "v", NC_DOUBLE, 2, dimids, &varid));
        check(nc_enddef(file.id()));
        for (std::size_t i = 0; i < job.count; ++i) {
            const std::size_t start[] = {i, 0};
            const std::size_t count[] = {1, 10};
            check(nc_put_vara_double(file.id(), varid, start, count, row));
        }
    }
    return finish(watch.seconds(), 0);
}

Done openAndInquire(const Job& job)
{
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i) {
        const File file(job.path);
        int nvars = 0;
        check(nc_inq(file.id(), nullptr, &nvars, nullptr, nullptr));
        for (int varid = 0; varid < nvars; ++varid) {
            char name[NC_MAX_NAME + 1];
            nc_type xtype = NC_NAT;
            int dimid = 0;
            check(nc_inq_var(file.id(), varid, name, &xtype, nullptr, &dimid, nullptr));
            std::size_t length = 0;
            check(nc_inq_dimlen(file.id(), dimid, &length));
            sum += static_cast<double>(length);
        }
    }
    return finish(watch.seconds(), sum);
}

Done readAttributes(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; i += 2) {
        std::size_t length = 0;
        char units[32];
        check(nc_inq_attlen(file.id(), 0, "units", &length));
        check(nc_get_att_text(file.id(), 0, "units", units));
        double range[2];
        check(nc_inq_attlen(file.id(), 0, "valid_range", &length));
        check(nc_get_att_double(file.id(), 0, "valid_range", range));
        sum += units[0] + range[1];
    }
    return finish(watch.seconds(), sum);
}

Done writeAttributes(const Job& job)
{
    const Stopwatch watch;
    {
        const File file(job);
        for (std::size_t i = 0; i < job.count; ++i) {
            const auto value = static_cast<double>(i);
            check(nc_put_att_double(file.id(), NC_GLOBAL, "a", NC_DOUBLE, 1, &value));
        }
    }
    return finish(watch.seconds(), 0);
}

Done inquireVariables(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i) {
        int varid = 0;
        check(nc_inq_varid(file.id(), "v10", &varid));
        sum += varid;
    }
    return finish(watch.seconds(), sum);
}

// --- The library's part of the calls that are measured one by one: what the module calls

template <class Call> Done repeat(const Job& job, Call call)
{
    const File file(job.path);
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i)
        check(call(file.id()));
    return finish(watch.seconds(), 0);
}

char text[NC_MAX_NAME + 1];
double numbers[100];
int number;
std::size_t length;
const std::size_t start = 3;
const std::size_t one = 1;
const std::size_t hundred = 100;
const std::ptrdiff_t stride = 1;

// The inquiries that the module makes before it reads values.
int inquireShape(int ncid)
{
    int dimid = 0;
    check(nc_inq_var(ncid, 0, text, nullptr, &number, nullptr, nullptr));
    check(nc_inq_vardimid(ncid, 0, &dimid));
    return nc_inq_dim(ncid, dimid, nullptr, nullptr);
}

// clang-format off
Done callInqLibVers(const Job& job) { return repeat(job, [](int) { return nc_inq_libvers() ? NC_NOERR : NC_EINVAL; }); }
Done callInqFormat(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_format(ncid, &number); }); }
Done callInqVarID(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_varid(ncid, "v10", &number); }); }
Done callInqDim(const Job& job) { return repeat(job, [](int ncid) { return nc_inq_dim(ncid, 0, text, &length); }); }
Done callInqVar(const Job& job) { return repeat(job, [](int ncid) { int dimid; nc_type xtype; check(nc_inq_varndims(ncid, 3, &number)); return nc_inq_var(ncid, 3, text, &xtype, nullptr, &dimid, &number); }); }
Done callGetAttDouble(const Job& job) { return repeat(job, [](int ncid) { check(nc_inq_att(ncid, 0, "valid_range", nullptr, &length)); return nc_get_att_double(ncid, 0, "valid_range", numbers); }); }
Done callGetAttText(const Job& job) { return repeat(job, [](int ncid) { check(nc_inq_att(ncid, 0, "units", nullptr, &length)); return nc_get_att_text(ncid, 0, "units", text); }); }
Done callGetVar1Double(const Job& job) { return repeat(job, [](int ncid) { check(inquireShape(ncid)); return nc_get_vars_double(ncid, 0, &start, &one, &stride, numbers); }); }
Done callGetVaraDouble(const Job& job) { return repeat(job, [](int ncid) { check(inquireShape(ncid)); return nc_get_vars_double(ncid, 0, &start, &hundred, &stride, numbers); }); }
Done callParameter(const Job& job) { return repeat(job, [](int) { return NC_NOERR; }); }
// clang-format on

// --- Reading what others wrote

Done checkField(const Job& job)
{
    const File file(job.path);
    auto values = fresh<double>(job.count);
    check(nc_get_var_double(file.id(), 0, values.get()));
    return finish(0, std::move(values), job.count);
}

Done checkText(const Job& job) { return readText(job); }

Done checkAttribute(const Job& job)
{
    const File file(job.path);
    double value = 0;
    check(nc_get_att_double(file.id(), NC_GLOBAL, "a", &value));
    return finish(0, value);
}

} // namespace

int main(int argc, char** argv)
{
    wantHugePages = argc > 1 && std::string(argv[1]) == "huge";
    return bench::serve({{"make_double", makeDouble},
                         {"make_packed", makePacked},
                         {"make_short", makeShort},
                         {"make_text", makeText},
                         {"make_small", makeSmall},
                         {"read_double", readDouble},
                         {"read_short", readShort},
                         {"read_short_as_double", readDouble},
                         {"read_packed", readFloat},
                         {"read_strided", readStrided},
                         {"read_text", readText},
                         {"write_double", writeDouble},
                         {"write_without_fill", writeWithoutFill},
                         {"write_text", writeText},
                         {"read_values", readValues},
                         {"read_blocks", readBlocks},
                         {"append_records", appendRecords},
                         {"open_inquire_close", openAndInquire},
                         {"read_attributes", readAttributes},
                         {"write_attributes", writeAttributes},
                         {"inquire_variables", inquireVariables},
                         {"call_inqLibVers", callInqLibVers},
                         {"call_inqFormat", callInqFormat},
                         {"call_inqVarID", callInqVarID},
                         {"call_inqDim", callInqDim},
                         {"call_inqVar", callInqVar},
                         {"call_getAttDouble", callGetAttDouble},
                         {"call_getAttText", callGetAttText},
                         {"call_getVar1Double", callGetVar1Double},
                         {"call_getVaraDouble", callGetVaraDouble},
                         {"call_parameter", callParameter},
                         {"check_field", checkField},
                         {"check_text", checkText},
                         {"check_attribute", checkAttribute}});
}
