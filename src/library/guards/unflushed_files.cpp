// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unflushed_files.h"

#include "library/storage_model.h"

namespace Ovard::gridio {
namespace {

// Probes with a rename that cannot succeed: on a read-only file it fails with NC_EPERM first.
bool isWritable(int ncid) { return nc_rename_dim(ncid, -1, "") != NC_EPERM; }

// Not a group, which is never closed.
bool isWholeFile(int ncid) { return nc_inq_grp_parent(ncid, nullptr) == NC_ENOGRP; }

bool mayHavePendingData(int ncid)
{
    const int model = storageModel(ncid);
    return (model == NC_FORMATX_NC3 && isWritable(ncid)) ||
           (model == NC_FORMATX_NC_HDF5 && isWholeFile(ncid));
}

} // namespace

int flushBeforeClose(int ncid)
{
    if (!mayHavePendingData(ncid))
        return NC_NOERR;
    int status = nc_enddef(ncid);
    if (status == NC_NOERR || status == NC_ENOTINDEFINE)
        status = nc_sync(ncid);
    return status == NC_EPERM ? NC_NOERR : status;
}

} // namespace Ovard::gridio
