// SPDX-License-Identifier: BSD-3-Clause
// Closing, flushing, define mode and fill settings.
#include "files/file_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "open_file_registry.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {
namespace {

// A file of the classic formats, open for writing. Asked of the library by a renaming that can not
// come to pass: of a read-only file it is refused before anything else is looked at.
bool isWritableClassic(int ncid)
{
    int model = 0;
    return nc_inq_format_extended(ncid, &model, nullptr) == NC_NOERR && model == NC_FORMATX_NC3 &&
           nc_rename_dim(ncid, -1, "") != NC_EPERM;
}

// What is still to be written of such a file. When nc_close comes to do this itself and fails, it
// has either freed what the identifier stands for, so that the next use of it crashes, or it says
// nothing and the data are gone.
int writeRest(int ncid)
{
    const int status = nc_enddef(ncid);
    return status == NC_NOERR || status == NC_ENOTINDEFINE ? nc_sync(ncid) : status;
}

// nc_close, but a file that can not be written to its end stays open, to be mended and closed, or
// aborted.
int closeFile(int ncid)
{
    const int status = isWritableClassic(ncid) ? writeRest(ncid) : NC_NOERR;
    return status == NC_NOERR ? nc_close(ncid) : status;
}

} // namespace

void close(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");

    checkStatus(closeFile(ncid), entry);
    unregisterOpenFile(ncid);
}

void abort(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");

    checkStatus(nc_abort(ncid), entry);
    unregisterOpenFile(ncid);
}

void sync(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");

    checkStatus(nc_sync(ncid), entry);
}

void redef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");

    checkStatus(nc_redef(ncid), entry);
}

void endDef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");

    checkStatus(nc_enddef(ncid), entry);
}

void pEndDef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const std::size_t headerFree = readSizeScalar(args[1], "h_minfree");
    const std::size_t variableAlign = readSizeScalar(args[2], "v_align");
    const std::size_t variableFree = readSizeScalar(args[3], "v_minfree");
    const std::size_t recordAlign = readSizeScalar(args[4], "r_align");

    checkStatus(nc__enddef(ncid, headerFree, variableAlign, variableFree, recordAlign), entry);
}

void setFill(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const int newMode = readIntScalar(args[1], "new_fill_mode");

    int oldMode = 0;
    checkStatus(nc_set_fill(ncid, newMode, &oldMode), entry);
    results[0] = intResult(oldMode);
}

void setDefaultFormat(int, vxArray* results[], int, const vxArray* args[],
                      const OperationEntry* entry)
{
    const int newFormat = readIntScalar(args[0], "new default format");

    int oldFormat = 0;
    checkStatus(nc_set_default_format(newFormat, &oldFormat), entry);
    results[0] = intResult(oldFormat);
}

} // namespace Ovard::gridio::operations
