// SPDX-License-Identifier: BSD-3-Clause
// What the gateway and the interpreter's host add to a call: nanoseconds by Google Benchmark, or,
// with --counts under callgrind, instructions and allocations, which repeat exactly. The
// interpreter is in this process, but not its dispatch: the function is called directly.
//
//     gateway_bench FILE.nc [benchmark options]
//     valgrind --tool=callgrind --instr-atstart=no ... gateway_bench FILE.nc --counts
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "data/elements/index_vectors.h"
#include "gateway/operation_table.h"
#include "hosts/octave/call.h"

#include <benchmark/benchmark.h>
#include <netcdf.h>
#include <octave/interpreter.h>
#include <octave/oct.h>
#include <valgrind/callgrind.h>

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <string>
#include <vector>

// gridio.oct's function, without the interpreter's way to it.
octave_value_list Fgridio(const octave_value_list& arguments, int nargout);

namespace {

std::size_t allocations = 0;

} // namespace

// Every allocation of the process, the libraries' included, passes here.
extern "C" {
void* __libc_malloc(std::size_t bytes);
void* __libc_calloc(std::size_t count, std::size_t bytes);
void* __libc_realloc(void* block, std::size_t bytes);

__attribute__((visibility("default"))) void* malloc(std::size_t bytes) noexcept
{
    ++allocations;
    return __libc_malloc(bytes);
}

__attribute__((visibility("default"))) void* calloc(std::size_t count, std::size_t bytes) noexcept
{
    ++allocations;
    return __libc_calloc(count, bytes);
}

__attribute__((visibility("default"))) void* realloc(void* block, std::size_t bytes) noexcept
{
    ++allocations;
    return __libc_realloc(block, bytes);
}
}

namespace {

using namespace Ovard::gridio;
using hosts::oct::Call;

struct Path {
    std::string name;
    std::function<void()> run;

    // The least that it could do: the library's calls, and the results made as the interpreter
    // makes them. What it allocates is not the gateway's own.
    std::function<void()> least;
};

int ncid;
int number;
std::size_t size;
char text[NC_MAX_NAME + 1];
double numbers[100];
const std::size_t start = 3;
const std::size_t one = 1;
const std::size_t hundred = 100;
const std::ptrdiff_t stride = 1;

// The operation is the name's first word.
Path call(const std::string& name, const octave_value_list& arguments, std::function<void()> least)
{
    octave_value_list all;
    all.append(octave_value(name.substr(0, name.find(','))));
    all.append(arguments);
    return {name, [all] { benchmark::DoNotOptimize(Fgridio(all, 1)); }, std::move(least)};
}

void keep(const octave_value_list& results) { benchmark::DoNotOptimize(results.length()); }

octave_value_list numberList(int count)
{
    octave_value_list values;
    values.resize(count);
    for (int i = 0; i < count; ++i)
        values(i) = 1.0;
    return values;
}

octave_value column(octave_idx_type count)
{
    auto* block = static_cast<double*>(::operator new(static_cast<std::size_t>(count) * 8));
    return octave_value(Array<double>(block, dim_vector(count, 1)));
}

octave_value row(const char* characters) { return octave_value(std::string(characters)); }

void nothing() {}

// A step of the gateway, on an argument of its own.
template <class Step>
Path step(const char* name, const octave_value& argument, Step work, void (*least)() = nothing)
{
    return {name,
            [argument, work] {
                Call running;
                work(running.add(argument));
            },
            least};
}

std::vector<Path> paths()
{
    const octave_value id = static_cast<double>(ncid);
    const octave_value zero = 0.0;
    const octave_value three = 3.0;
    Matrix triple(1, 3, 2.0);

    const auto lookUp = [](const OperationEntry& entry) {
        return [&entry] { benchmark::DoNotOptimize(findOperation(entry.name, entry.nargs)); };
    };

    return {
        {"look-up, first row", lookUp(operationTable[0]), nothing},
        {"look-up, last row", lookUp(operationTable[operationTable.size() - 1]), nothing},
        step("read a number", three,
             [](const vxArray* a) { benchmark::DoNotOptimize(readIntScalar(a, "ncid")); }),
        step("read a name", octave_value("v10"),
             [](const vxArray* a) { benchmark::DoNotOptimize(readText(a, "variable")); }),
        step("read a START of 3", octave_value(triple),
             [](const vxArray* a) { benchmark::DoNotOptimize(toSizeVector(a, "START")); }),
        step(
            "build a number", three,
            [](const vxArray*) { benchmark::DoNotOptimize(hosts::oct::toValue(*intResult(3))); },
            [] { benchmark::DoNotOptimize(octave_value(3.0)); }),
        step(
            "build a name", three,
            [](const vxArray*) {
                benchmark::DoNotOptimize(hosts::oct::toValue(*textResult("v10")));
            },
            [] { benchmark::DoNotOptimize(row("v10")); }),
        {"check a status", [] { checkStatus(NC_NOERR, &operationTable[0]); }, nothing},

        call("inqLibVers", {}, [] { keep(ovl(row(nc_inq_libvers()))); }),
        call("inqFormat", ovl(id),
             [] {
                 nc_inq_format(ncid, &number);
                 keep(ovl(row("FORMAT_CLASSIC")));
             }),
        call("inq", ovl(id),
             [] {
                 nc_inq(ncid, &number, &number, &number, &number);
                 keep(numberList(4));
             }),
        call("inqVarID", ovl(id, octave_value("v10")),
             [] {
                 nc_inq_varid(ncid, "v10", &number);
                 keep(numberList(1));
             }),
        call("inqDimID", ovl(id, octave_value("x")),
             [] {
                 nc_inq_dimid(ncid, "x", &number);
                 keep(numberList(1));
             }),
        call("inqAttID", ovl(id, zero, octave_value("units")),
             [] {
                 nc_inq_attid(ncid, 0, "units", &number);
                 keep(numberList(1));
             }),
        call("inqDim", ovl(id, zero),
             [] {
                 nc_inq_dim(ncid, 0, text, &size);
                 octave_value_list values = numberList(2);
                 values(0) = row(text);
                 keep(values);
             }),
        call("inqVar", ovl(id, three),
             [] {
                 nc_inq_var(ncid, 3, text, nullptr, nullptr, &number, nullptr);
                 octave_value_list values = numberList(4);
                 values(0) = row(text);
                 keep(values);
             }),
        call("getAttDouble", ovl(id, zero, octave_value("valid_range")),
             [] {
                 nc_inq_att(ncid, 0, "valid_range", nullptr, &size);
                 nc_get_att_double(ncid, 0, "valid_range", numbers);
                 keep(ovl(column(2)));
             }),
        call("getAttText", ovl(id, zero, octave_value("units")),
             [] {
                 nc_inq_att(ncid, 0, "units", nullptr, &size);
                 nc_get_att_text(ncid, 0, "units", text);
                 keep(ovl(row(text)));
             }),
        call("getVar1Double", ovl(id, zero, three),
             [] {
                 nc_get_vars_double(ncid, 0, &start, &one, &stride, numbers);
                 keep(numberList(1));
             }),
        call("getVaraDouble", ovl(id, zero, three, octave_value(100.0)),
             [] {
                 nc_get_vars_double(ncid, 0, &start, &hundred, &stride, numbers);
                 keep(ovl(column(100)));
             }),
        call("putVar1Double", ovl(id, zero, three, three),
             [] {
                 nc_put_vars_double(ncid, 0, &start, &one, &stride, numbers);
                 keep(octave_value_list());
             }),
        call("parameter", ovl(octave_value("NC_DOUBLE")), [] { keep(numberList(1)); }),
        call("parameter, last", ovl(octave_value("NC_FLETCHER32")), [] { keep(numberList(1)); }),
    };
}

std::size_t allocationsOf(const std::function<void()>& work)
{
    const std::size_t before = allocations;
    work();
    return allocations - before;
}

// One line for each path, in the order of callgrind's dumps: name, allocations, those of the least.
void count(const std::vector<Path>& all)
{
    for (const Path& path : all) {
        for (int i = 0; i < 3; ++i)
            path.run();
        path.least();
        const std::size_t done = allocationsOf(path.run);
        const std::size_t least = allocationsOf(path.least);
        CALLGRIND_START_INSTRUMENTATION;
        CALLGRIND_ZERO_STATS;
        path.run();
        CALLGRIND_STOP_INSTRUMENTATION;
        CALLGRIND_DUMP_STATS;
        std::printf("%s|%zu|%zu\n", path.name.c_str(), done, least);
    }
}

} // namespace

int main(int argc, char** argv)
{
    if (argc < 2 || nc_open(argv[1], NC_WRITE, &ncid) != NC_NOERR) {
        std::fprintf(stderr, "usage: gateway_bench FILE.nc [--counts | benchmark options]\n");
        return 2;
    }
    octave::interpreter interpreter;
    interpreter.initialize_history(false);
    interpreter.initialize_load_path(false);
    interpreter.read_site_files(false);
    interpreter.read_init_files(false);
    interpreter.initialize();

    const std::vector<Path> all = paths();
    if (argc > 2 && std::strcmp(argv[2], "--counts") == 0) {
        count(all);
    } else {
        benchmark::Initialize(&argc, argv);
        for (const Path& path : all)
            benchmark::RegisterBenchmark(path.name.c_str(), [&path](benchmark::State& state) {
                const std::size_t before = allocations;
                for (auto _ : state)
                    path.run();
                state.counters["allocations"] = benchmark::Counter(
                    static_cast<double>(allocations - before), benchmark::Counter::kAvgIterations);
            });
        benchmark::RunSpecifiedBenchmarks();
    }
    return nc_close(ncid) == NC_NOERR ? 0 : 1;
}
