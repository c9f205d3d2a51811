// SPDX-License-Identifier: BSD-3-Clause
// Opening and creating files.
#include "files/file_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "files/mode_words.h"
#include "open_file_registry.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {

void open(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);

    int ncid = 0;
    checkStatus(nc_open(file.c_str(), mode, &ncid), entry);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void create(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);

    int ncid = 0;
    checkStatus(nc_create(file.c_str(), mode, &ncid), entry);
    registerOpenFile(ncid);
    results[0] = intResult(ncid);
}

void pOpen(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);
    std::size_t chunkSizeHint = readSizeScalar(args[2], "chunksizehint");

    int ncid = 0;
    checkStatus(nc__open(file.c_str(), mode, &chunkSizeHint, &ncid), entry);
    registerOpenFile(ncid);
    results[0] = sizeResult(chunkSizeHint);
    results[1] = intResult(ncid);
}

// Deliberately not registered: such a file is neither warned about nor closed at unload.
void pCreate(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const std::string file = readText(args[0], "file");
    const int mode = readModeArgument(args[1]);
    const std::size_t initialSize = readSizeScalar(args[2], "initialsize");
    std::size_t chunkSize = readSizeScalar(args[3], "chunksize");

    int ncid = 0;
    checkStatus(nc__create(file.c_str(), mode, initialSize, &chunkSize, &ncid), entry);
    results[0] = sizeResult(chunkSize);
    results[1] = intResult(ncid);
}

} // namespace Ovard::gridio::operations
