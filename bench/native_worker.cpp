// SPDX-License-Identifier: BSD-3-Clause
// The floor of the side-by-side benchmark: the same work in plain calls of the library, into memory
// of malloc. With the argument "huge", into memory that asks for huge pages, which is the limit of
// large reads. With "threads", in a process that has a second thread, which sleeps, as the
// interpreter has for its signals: the system then takes more time for each call.
#include "bench/native_work.h"

#include <sys/mman.h>

#include <unistd.h>

#include <cstdlib>
#include <numeric>
#include <string>
#include <thread>
#include <vector>

bool bench::hugePages = false;

void* bench::freshMemory(std::size_t bytes)
{
    constexpr std::size_t hugePage = std::size_t{2} << 20;
    if (!hugePages || bytes < hugePage)
        return std::malloc(bytes);
    const std::size_t rounded = (bytes + hugePage - 1) / hugePage * hugePage;
    void* memory = std::aligned_alloc(hugePage, rounded);
    static_cast<void>(madvise(memory, rounded, MADV_HUGEPAGE));
    return memory;
}

namespace {

using namespace bench;

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

// Strings are the library's, and are copied before it gets them back.
Done readStrings(const Job& job)
{
    const File file(job.path);
    const Stopwatch watch;
    std::vector<char*> pointers(job.count);
    check(nc_get_var_string(file.id(), 0, pointers.data()));
    const std::vector<std::string> texts(pointers.begin(), pointers.end());
    check(nc_free_string(job.count, pointers.data()));
    const double seconds = watch.seconds();
    auto sums = fresh<double>(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        sums.get()[i] = std::accumulate(texts[i].begin(), texts[i].end(), 0.0);
    return finish(seconds, std::move(sums), job.count);
}

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
        sum += nvars;
    }
    return finish(watch.seconds(), sum);
}

Done readAttributes(const Job& job)
{
    const File file(job.path);
    char units[32];
    double range[2];
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; i += 2) {
        std::size_t length = 0;
        check(nc_inq_attlen(file.id(), 0, "units", &length));
        check(nc_get_att_text(file.id(), 0, "units", units));
        check(nc_inq_attlen(file.id(), 0, "valid_range", &length));
        check(nc_get_att_double(file.id(), 0, "valid_range", range));
    }
    return finish(watch.seconds(), units[0] + range[1]);
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

} // namespace

int main(int argc, char** argv)
{
    const std::string way = argc > 1 ? argv[1] : "";
    hugePages = way == "huge";
    if (way == "threads")
        std::thread(pause).detach();
    Works works = {{"read_double", readDouble},
                   {"read_short", readShort},
                   {"read_short_as_double", readDouble},
                   {"read_packed", readFloat},
                   {"read_strided", readStrided},
                   {"read_text", readText},
                   {"read_strings", readStrings},
                   {"write_double", writeDouble},
                   {"write_without_fill", writeWithoutFill},
                   {"write_text", writeText},
                   {"read_values", readValues},
                   {"read_blocks", readBlocks},
                   {"append_records", appendRecords},
                   {"open_inquire_close", openAndInquire},
                   {"read_attributes", readAttributes},
                   {"write_attributes", writeAttributes},
                   {"inquire_variables", inquireVariables}};
    works.merge(fileWorks());
    works.merge(callWorks());
    works.merge(chunkWorks());
    works.merge(datasetWorks());
    return serve(works);
}
