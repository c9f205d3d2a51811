// SPDX-License-Identifier: BSD-3-Clause
// Reads of src/chunks as functions of the interpreter, linked with the module and its host.
#include "chunks/chunk_reads.h"
#include "chunks/thread_count.h"

#include <octave/oct.h>

#include <netcdf.h>

#include <string>
#include <vector>

extern "C" __attribute__((visibility("default"))) octave_function*
Gread_in_chunks(const octave::dynamic_library& library, bool isRelative);

namespace {

using namespace Ovard::gridio;

const OperationEntry entry = {0, "read_in_chunks", 0, nullptr};

void require(int status)
{
    if (status != NC_NOERR)
        error("%s", nc_strerror(status));
}

// So many chunks of 64 numbers 0 1 2 ..., which take the time of a far larger variable to read.
void makeFile(const std::string& path, std::size_t chunks)
{
    int ncid = 0;
    int dimid = 0;
    int varid = 0;
    constexpr std::size_t chunk = 64;
    const std::size_t length = chunks * chunk;
    require(nc_create(path.c_str(), NC_NETCDF4 | NC_CLOBBER, &ncid));
    require(nc_def_dim(ncid, "x", length, &dimid));
    require(nc_def_var(ncid, "v", NC_INT, 1, &dimid, &varid));
    require(nc_def_var_chunking(ncid, varid, NC_CHUNKED, &chunk));
    require(nc_def_var_deflate(ncid, varid, 1, 1, 1));
    std::vector<int> values(length);
    for (std::size_t i = 0; i < length; ++i)
        values[i] = static_cast<int>(i);
    require(nc_put_var_int(ncid, varid, values.data()));
    require(nc_close(ncid));
}

// The sum of what is read: that of all numbers, or less.
double readSum(int ncid)
{
    Variable variable(ncid, 0, &entry);
    std::vector<int> values(variable.lengths()[0]);
    readValues(variable, wholeBlock(variable), {values.data(), nullptr});
    double sum = 0;
    for (const int value : values)
        sum += value;
    return sum;
}

} // namespace

DEFUN_DLD(read_in_chunks, args, , R"(read_in_chunks ("make", PATH, CHUNKS)
ncid = read_in_chunks ("open", PATH)
sum = read_in_chunks ("read", NCID, THREADS)
read_in_chunks ("close", NCID))")
{
    const std::string operation = args(0).string_value();
    if (operation == "make") {
        makeFile(args(1).string_value(), static_cast<std::size_t>(args(2).int_value()));
    } else if (operation == "open") {
        int ncid = 0;
        require(nc_open(args(1).string_value().c_str(), NC_NOWRITE, &ncid));
        return ovl(ncid);
    } else if (operation == "read") {
        setThreadCount(static_cast<std::size_t>(args(2).int_value()));
        return ovl(readSum(args(1).int_value()));
    } else {
        require(nc_close(args(1).int_value()));
    }
    return {};
}
