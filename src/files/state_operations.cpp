// SPDX-License-Identifier: BSD-3-Clause
// Closing, flushing, define mode and fill settings.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "library/guards/torn_down_files.h"
#include "library/guards/unflushed_files.h"
#include "library/guards/zero_alignments.h"
#include "library/hdf5_file.h"
#include "open_file_registry.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {

// A file whose pending data cannot be written stays open, so that the cause can be fixed and the
// file closed or aborted.
void close(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    checkStatus(flushBeforeClose(ncid), entry);
    const int status = closeOrAbandon(ncid);
    if (status == NC_NOERR || isAbandonedFile(ncid)) {
        unregisterOpenFile(ncid);
        forgetFile(ncid);
    }
    checkStatus(status, entry);
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

    if ((variableAlign == 0 || recordAlign == 0) && dividesByAlignments(ncid))
        raiseLibraryFailure(NC_EINVAL, entry);
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
