// SPDX-License-Identifier: BSD-3-Clause
// The same work through the module's operations, in the stand-alone host.
#include "bench/worker.h"

#include "hosts/standalone/host.h"

#include <string>
#include <vector>

namespace {

using bench::checksum;
using bench::Done;
using bench::Job;
using bench::positionOf;
using bench::Stopwatch;
using standalone::Dims;
using standalone::Host;
using standalone::Value;

Host& host()
{
    static Host only;
    return only;
}

Value result(const char* operation, const std::vector<Value>& arguments)
{
    return host().call(operation, arguments).at(0);
}

double number(std::size_t value) { return static_cast<double>(value); }

class File {
public:
    explicit File(const std::string& path) : ncid(result("open", {path, "nowrite"})) {}
    explicit File(const Job& job)
        : ncid(result("create", {job.path, job.format == "netcdf4" ? "netcdf4" : "clobber"}))
    {
    }
    ~File() { host().attempt("close", {ncid}); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    const Value ncid;
};

template <class T> Done finish(double seconds, const Value& values)
{
    return {seconds, [=] {
                return checksum(static_cast<const T*>(values.array()->elements.get()),
                                values.numel());
            }};
}

Done finish(double seconds, double sum)
{
    return {seconds, [=] { return sum; }};
}

template <class T> Done readWhole(const Job& job, const char* operation)
{
    const File file(job.path);
    const Stopwatch watch;
    const Value values = result(operation, {file.ncid, 0});
    return finish<T>(watch.seconds(), values);
}

Done readDouble(const Job& job) { return readWhole<double>(job, "getVarDouble"); }
Done readFloat(const Job& job) { return readWhole<float>(job, "getVarFloat"); }
Done readShort(const Job& job) { return readWhole<short>(job, "getVarShort"); }
Done readText(const Job& job) { return readWhole<char16_t>(job, "getVarText"); }

Done readStrided(const Job& job)
{
    const File file(job.path);
    const Stopwatch watch;
    const Value values = result("getVarsDouble", {file.ncid, 0, Value::row<double>({0, 0, 0}),
                                                  Value::row<double>({128, 128, number(job.count)}),
                                                  Value::row<double>({2, 2, 1})});
    return finish<double>(watch.seconds(), values);
}

Done writeWhole(const Job& job, const char* operation, int xtype, double fillMode,
                const Value& values)
{
    const Stopwatch watch;
    {
        const File file(job);
        const double x = result("defDim", {file.ncid, "x", 256}).toDouble();
        const double y = result("defDim", {file.ncid, "y", 256}).toDouble();
        const double z = result("defDim", {file.ncid, "z", number(job.count / 65536)}).toDouble();
        const Value varid =
            result("defVar", {file.ncid, "v", xtype, Value::row<double>({x, y, z})});
        host().call("setFill", {file.ncid, fillMode});
        host().call("endDef", {file.ncid});
        host().call(operation, {file.ncid, varid, values});
    }
    return finish(watch.seconds(), 0);
}

Done writeDoubles(const Job& job, double fillMode)
{
    std::vector<double> values(job.count);
    for (std::size_t i = 0; i < job.count; ++i)
        values[i] = number(i % 1009) * 0.25;
    const Value field = Value::column(values);
    values = {};
    return writeWhole(job, "putVarDouble", 6, fillMode, field);
}

Done writeDouble(const Job& job) { return writeDoubles(job, 0); }
Done writeWithoutFill(const Job& job) { return writeDoubles(job, 0x100); }

Done writeText(const Job& job)
{
    std::u16string letters(job.count, u'a');
    for (std::size_t i = 0; i < job.count; ++i)
        letters[i] = static_cast<char16_t>(u'a' + i % 26);
    return writeWhole(job, "putVarText", 2, 0, Value::text(letters));
}

Done readValues(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i)
        sum += result("getVar1Double", {file.ncid, 0, number(positionOf(i))}).toDouble();
    return finish(watch.seconds(), sum);
}

Done readBlocks(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i)
        sum += *result("getVaraDouble", {file.ncid, 0, number(positionOf(i)), 100}).data<double>();
    return finish(watch.seconds(), sum);
}

Done appendRecords(const Job& job)
{
    const Value row = Value::row<double>({0, 1, 2, 3, 4, 5, 6, 7, 8, 9});
    const Value count = Value::row<double>({10, 1});
    const Stopwatch watch;
    {
        const File file(job);
        const double time = result("defDim", {file.ncid, "time", 0}).toDouble();
        const double x = result("defDim", {file.ncid, "x", 10}).toDouble();
        const Value varid = result("defVar", {file.ncid, "v", 6, Value::row<double>({x, time})});
        host().call("endDef", {file.ncid});
        for (std::size_t i = 0; i < job.count; ++i)
            host().call("putVaraDouble",
                        {file.ncid, varid, Value::row<double>({0, number(i)}), count, row});
    }
    return finish(watch.seconds(), 0);
}

Done openAndInquire(const Job& job)
{
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i) {
        const File file(job.path);
        sum += host().call("inq", {file.ncid}).at(1).toDouble();
    }
    return finish(watch.seconds(), sum);
}

Done readAttributes(const Job& job)
{
    const File file(job.path);
    Value units = 0;
    Value range = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; i += 2) {
        units = result("getAttText", {file.ncid, 0, "units"});
        range = result("getAttDouble", {file.ncid, 0, "valid_range"});
    }
    return finish(watch.seconds(), units.data<char16_t>()[0] + range.data<double>()[1]);
}

Done writeAttributes(const Job& job)
{
    const Stopwatch watch;
    {
        const File file(job);
        for (std::size_t i = 0; i < job.count; ++i)
            host().call("putAttDouble", {file.ncid, -1, "a", 6, number(i)});
    }
    return finish(watch.seconds(), 0);
}

Done inquireVariables(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < job.count; ++i)
        sum += result("inqVarID", {file.ncid, "v10"}).toDouble();
    return finish(watch.seconds(), sum);
}

} // namespace

int main()
{
    return bench::serve({{"read_double", readDouble},
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
                         {"inquire_variables", inquireVariables}});
}
