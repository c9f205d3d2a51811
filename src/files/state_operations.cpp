// SPDX-License-Identifier: BSD-3-Clause
// Closing, flushing, define mode and fill settings.
#include "files/file_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "library/hdf5_file.h"
#include "open_file_registry.h"
#include "storage_model.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {
namespace {

// Asked of the library by a definition that can not come to pass: in data mode it is refused before
// its name is looked at.
bool isInDefineMode(int ncid)
{
    int dimid = 0;
    return nc_def_dim(ncid, "", 1, &dimid) != NC_ENOTINDEFINE;
}

bool hasVariables(int ncid)
{
    int count = 0;
    return nc_inq_nvars(ncid, &count) == NC_NOERR && count > 0;
}

// A file of the classic formats, open for writing. Asked of the library by a renaming that can not
// come to pass: of a read-only file it is refused before anything else is looked at.
bool isWritableClassic(int ncid) { return nc_rename_dim(ncid, -1, "") != NC_EPERM; }

// Not one of its groups, which are never closed.
bool isNetcdf4File(int ncid) { return nc_inq_grp_parent(ncid, nullptr) == NC_ENOGRP; }

// Whether nc_close should find nothing left to write in the file.
bool isWrittenFirst(int ncid, int model)
{
    return (model == NC_FORMATX_NC3 && isWritableClassic(ncid)) ||
           (model == NC_FORMATX_NC_HDF5 && isNetcdf4File(ncid));
}

// What is still to be written of a file. When nc_close comes to do this itself and fails, it has
// either freed what the identifier stands for, so that the next use of it crashes, or it says
// nothing and the data are gone.
int writeRest(int ncid)
{
    const int status = nc_enddef(ncid);
    return status == NC_NOERR || status == NC_ENOTINDEFINE ? nc_sync(ncid) : status;
}

// nc_close, but a file that can not be written to its end stays open, to be mended and closed, or
// aborted. A netCDF-4 file that is written and yet not closed has been taken apart by the library.
int closeFile(int ncid)
{
    const int model = storageModel(ncid);
    const bool isWritten = isWrittenFirst(ncid, model);
    const int writing = isWritten ? writeRest(ncid) : NC_NOERR;
    if (writing != NC_NOERR && writing != NC_EPERM)
        return writing;

    const int status = nc_close(ncid);
    if (status != NC_NOERR && isWritten && model == NC_FORMATX_NC_HDF5)
        giveUpFile(ncid);
    return status;
}

} // namespace

void close(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(closeFile(ncid), entry);
    unregisterOpenFile(ncid);
    forgetFile(ncid);
}

void abort(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(nc_abort(ncid), entry);
    unregisterOpenFile(ncid);
    forgetFile(ncid);
}

void sync(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(nc_sync(ncid), entry);
}

void redef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(nc_redef(ncid), entry);
}

void endDef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(nc_enddef(ncid), entry);
}

void pEndDef(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::size_t headerFree = readSizeScalar(args[1], "h_minfree");
    const std::size_t variableAlign = readSizeScalar(args[2], "v_align");
    const std::size_t variableFree = readSizeScalar(args[3], "v_minfree");
    const std::size_t recordAlign = readSizeScalar(args[4], "r_align");

    // A zero alignment makes nc__enddef divide by zero when it places a variable.
    if ((variableAlign == 0 || recordAlign == 0) && storageModel(ncid) == NC_FORMATX_NC3 &&
        hasVariables(ncid) && isInDefineMode(ncid))
        checkStatus(NC_EINVAL, entry);
    checkStatus(nc__enddef(ncid, headerFree, variableAlign, variableFree, recordAlign), entry);
}

void setFill(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
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
