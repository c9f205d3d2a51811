// SPDX-License-Identifier: BSD-3-Clause
// Opening and creating files.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "files/mode_words.h"
#include "files/opening.h"
#include "library/guards/emptied_files.h"
#include "library/guards/endless_addresses.h"
#include "library/guards/full_tables.h"
#include "library/guards/misread_paths.h"
#include "library/guards/replaced_folders.h"
#include "library/guards/unregistered_formats.h"
#include "library/hdf5_file.h"
#include "open_file_registry.h"

#include <netcdf.h>

#include <cerrno>

namespace Ovard::gridio::operations {
namespace {

// The library would leave a file of no format, fail to close the file, or destroy one.
void refuseToCreate(const std::string& file, int mode, const OperationEntry* entry)
{
    if (namesUnregisteredFormat(mode) || isEndlessAddress(file))
        raiseLibraryFailure(NC_EINVAL, entry);
    if (overflowsFileTable(mode))
        raiseLibraryFailure(NC_ENFILE, entry);
    if (emptiesLockedFile(file, mode))
        raiseLibraryFailure(EACCES, entry); // as HDF5 reports it
    if (harmsFolder(file, mode))
        raiseLibraryFailure(NC_EEXIST, entry);
}

} // namespace

void open(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    int mode = readModeArgument(args[1]);

    int ncid = 0;
    checkStatus(openFile(file, mode, ncid), entry);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void create(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    int mode = readModeArgument(args[1]);

    refuseToCreate(file, mode, entry);
    const LibraryPath path(file, LibraryPath::Purpose::creating, mode);
    checkStatus(path.status(), entry);
    int ncid = 0;
    checkStatus(nc_create(path.c_str(), mode, &ncid), entry);
    noteOpenedFile(ncid);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void pOpen(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    int mode = readModeArgument(args[1]);
    std::size_t chunkSizeHint = readSizeScalar(args[2], "chunksizehint");

    checkStatus(refusalToOpen(file, mode), entry);
    const LibraryPath path(file, LibraryPath::Purpose::opening, mode);
    checkStatus(path.status(), entry);
    int ncid = 0;
    checkStatus(nc__open(path.c_str(), mode, &chunkSizeHint, &ncid), entry);
    noteOpenedFile(ncid);
    registerOpenFile(ncid);
    results[0] = sizeResult(chunkSizeHint);
    results[1] = intResult(ncid);
}

// Deliberately not registered: at unload there is no warning about such a file, and it is not
// closed. If the results cannot be allocated, the script never receives the identifier, so the file
// is closed here.
void pCreate(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    int mode = readModeArgument(args[1]);
    const std::size_t initialSize = readSizeScalar(args[2], "initialsize");
    std::size_t chunkSize = readSizeScalar(args[3], "chunksize");

    refuseToCreate(file, mode, entry);
    const LibraryPath path(file, LibraryPath::Purpose::creating, mode);
    checkStatus(path.status(), entry);
    int ncid = 0;
    checkStatus(nc__create(path.c_str(), mode, initialSize, &chunkSize, &ncid), entry);
    noteOpenedFile(ncid);
    try {
        results[0] = sizeResult(chunkSize);
        results[1] = intResult(ncid);
    } catch (...) {
        static_cast<void>(nc_close(ncid)); // the out-of-memory error follows
        throw;
    }
}

} // namespace Ovard::gridio::operations
