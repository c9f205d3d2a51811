// SPDX-License-Identifier: BSD-3-Clause
// Fuzzes the entry point: a few calls in a row, on a file that may already exist.
#include "fuzz/argument_values.h"
#include "fuzz/known_faults.h"
#include "fuzz/nested_type.h"
#include "fuzz/scratch_folder.h"
#include "fuzz/session.h"

#include <netcdf.h>

#include <cstdlib>
#include <iostream>
#include <map>

namespace fuzz {
namespace {

constexpr std::size_t callLimit = 24;
constexpr std::size_t rawCallsOneIn = 4; // its first argument may be any value, too

// The file that a run starts with: its mode, or -1 for none, and in how many of 256 runs. NetCDF-4
// files take twenty times as long as the others.
struct Beginning {
    int mode;
    int runs;
};
constexpr int diskless = NC_DISKLESS;
constexpr Beginning beginnings[] = {
    {-1, 96},
    {diskless, 72},
    {diskless | NC_64BIT_OFFSET, 24},
    {diskless | NC_CDF5, 40},
    {NC_CLOBBER, 8},
    {diskless | NC_NETCDF4, 8},
    {diskless | NC_NETCDF4 | NC_CLASSIC_MODEL, 4},
    {NC_NETCDF4, 4},
};

// Whether runs that start with a netCDF-4 file are left out: if the environment has FUZZ_QUICK.
bool isLeftOut(int mode)
{
    static const bool isQuick = std::getenv("FUZZ_QUICK") != nullptr;
    return isQuick && mode >= 0 && (mode & NC_NETCDF4) != 0;
}

int modeToBeginWith(InputBytes& input)
{
    int chosen = input.byte();
    const Beginning* beginning = beginnings;
    while (chosen >= beginning->runs)
        chosen -= beginning++->runs;
    return beginning->mode;
}

// Dimensions x (2), y (3), t (unlimited, 2 records); variables v (y, x), w (x, t) of text, s
// (scalar), r (t); some attributes; a group and types if the format has them. Created by the library
// directly, which is faster.
int makeFile(int mode)
{
    const int xy[] = {1, 0};
    const int tx[] = {2, 0};
    const double range[] = {0, 1};
    const short records[] = {7, 8};
    const std::size_t first = 0;
    const std::size_t two = 2;
    int ncid = 0;
    int id = 0;
    const int status = nc_create((scratchFolder() + "/a.nc").c_str(), mode, &ncid);
    if (status != NC_NOERR)
        finding("no file to begin with: " + std::to_string(status));
    nc_def_dim(ncid, "x", 2, &id);
    nc_def_dim(ncid, "y", 3, &id);
    nc_def_dim(ncid, "t", NC_UNLIMITED, &id);
    nc_def_var(ncid, "v", NC_DOUBLE, 2, xy, &id);
    nc_def_var(ncid, "w", NC_CHAR, 2, tx, &id);
    nc_def_var(ncid, "s", NC_INT, 0, nullptr, &id);
    nc_def_var(ncid, "r", NC_SHORT, 1, tx, &id);
    nc_put_att_text(ncid, NC_GLOBAL, "title", 4, "seed");
    nc_put_att_double(ncid, 0, "range", NC_DOUBLE, 2, range);
    if ((mode & NC_NETCDF4) != 0 && (mode & NC_CLASSIC_MODEL) == 0) {
        int group = 0;
        nc_def_grp(ncid, "g", &group);
        nc_def_var(group, "u", NC_INT64, 1, xy + 1, &id);
        addNestedType(ncid);
    }
    nc_enddef(ncid);
    nc_put_vara_short(ncid, 3, &first, &two, records);
    return ncid;
}

// Statistics, printed at the end of the process.
struct Figures {
    std::map<int, unsigned long> runs; // by the mode of the file that they started with
    unsigned long calls = 0;
    unsigned long callsThatSucceeded = 0;
    unsigned long callsLeftOut = 0;

    ~Figures()
    {
        std::cerr << "calls: " << calls << ", of which succeeded: " << callsThatSucceeded
                  << "; left out: " << callsLeftOut << '\n';
        for (const auto& [mode, number] : runs)
            std::cerr << "runs with a file of mode " << mode << ": " << number << '\n';
    }
};

Figures& figures()
{
    static Figures all;
    return all;
}

void count(const standalone::Outcome& outcome)
{
    ++figures().calls;
    figures().callsThatSucceeded += outcome.succeeded() ? 1 : 0;
}

void callUnlessKnown(Session& session, const Operation& operation,
                     const std::vector<standalone::Value>& arguments)
{
    if (isKnownFault(operation, arguments) || growsFileInMemory(operation, arguments))
        ++figures().callsLeftOut;
    else
        count(session.call(operation, arguments));
}

// False if it was not created.
bool run(InputBytes& input)
{
    const std::uint8_t settings = input.byte();
    const int mode = modeToBeginWith(input);
    if (isLeftOut(mode))
        return false;

    Session session;
    session.host().setRaiser((settings & 1) != 0 ? standalone::Raiser::throws
                                                 : standalone::Raiser::returns);
    if ((settings & 2) != 0)
        session.host().fillUninitialised(std::uint8_t{0xa5});
    ++figures().runs[mode];
    if (mode >= 0)
        session.adoptFile(makeFile(mode));
    if ((settings & 0xf0) == 0xf0)
        session.host().failAllocation(input.byte());

    for (std::size_t calls = 0; calls < callLimit && !input.atEnd(); ++calls) {
        const bool isOperation = !input.oneIn(rawCallsOneIn);
        const Operation* operation =
            isOperation ? &operationNear(input.any<std::uint16_t>()) : nullptr;
        ArgumentValues arguments(input, session.knownIds());
        if (isOperation)
            callUnlessKnown(session, *operation, arguments.forOperation(*operation));
        else
            session.host().attemptRaw({arguments.anything(), arguments.anything()}, 4,
                                      (settings & 4) != 0 ? plugAnyFunction : plugFunction);
    }
    return true;
}

} // namespace
} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    fuzz::InputBytes input(bytes, count);
    return fuzz::run(input) ? 0 : -1;
}
