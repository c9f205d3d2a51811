// SPDX-License-Identifier: BSD-3-Clause
// Opening and creating files.
#include "files/file_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "files/mode_words.h"
#include "library/hdf5_file.h"
#include "open_file_registry.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {
namespace {

// Flags that the library does not refuse but crashes on: formats that a program would have to
// define first, and a file in memory that nobody handed over. They get the status that other
// senseless modes get.
constexpr int flagsUnfitForCreating = NC_UDF0 | NC_UDF1;
constexpr int flagsUnfitForOpening = NC_INMEMORY;

void refuseFlags(int mode, int flags, const OperationEntry* entry)
{
    if ((mode & flags) != 0)
        checkStatus(NC_EINVAL, entry);
}

} // namespace

void open(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);

    refuseFlags(mode, flagsUnfitForOpening, entry);
    int ncid = 0;
    checkStatus(nc_open(file.c_str(), mode, &ncid), entry);
    noteOpenedFile(ncid);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void create(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);

    refuseFlags(mode, flagsUnfitForCreating, entry);
    int ncid = 0;
    checkStatus(nc_create(file.c_str(), mode, &ncid), entry);
    noteOpenedFile(ncid);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void pOpen(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);
    std::size_t chunkSizeHint = readSizeScalar(args[2], "chunksizehint");

    refuseFlags(mode, flagsUnfitForOpening, entry);
    int ncid = 0;
    checkStatus(nc__open(file.c_str(), mode, &chunkSizeHint, &ncid), entry);
    noteOpenedFile(ncid);
    registerOpenFile(ncid);
    results[0] = sizeResult(chunkSizeHint);
    results[1] = intResult(ncid);
}

// Deliberately not registered: such a file is neither warned about nor closed at unload. Without
// memory for its identifier nobody could ever close it, so that this is done here.
void pCreate(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);
    const std::size_t initialSize = readSizeScalar(args[2], "initialsize");
    std::size_t chunkSize = readSizeScalar(args[3], "chunksize");

    refuseFlags(mode, flagsUnfitForCreating, entry);
    int ncid = 0;
    checkStatus(nc__create(file.c_str(), mode, initialSize, &chunkSize, &ncid), entry);
    noteOpenedFile(ncid);
    try {
        results[0] = sizeResult(chunkSize);
        results[1] = intResult(ncid);
    } catch (...) {
        static_cast<void>(nc_close(ncid)); // the caller is told that there is no memory
        throw;
    }
}

} // namespace Ovard::gridio::operations
