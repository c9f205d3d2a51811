// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/torn_down_files.h"

#include "library/storage_model.h"

#include <set>

namespace Ovard::gridio {
namespace {

std::set<int> abandonedFiles; // by the file's own identifier

bool isTornDownByFailingClose(int ncid)
{
    return isStoredInHdf5(ncid) && nc_inq_grp_parent(ncid, nullptr) == NC_ENOGRP;
}

} // namespace

int closeOrAbandon(int ncid)
{
    const bool isAtRisk = isTornDownByFailingClose(ncid);
    const int status = nc_close(ncid);
    if (status != NC_NOERR && isAtRisk)
        abandonedFiles.insert(fileIdOf(ncid));
    return status;
}

bool isAbandonedFile(int ncid)
{
    return !abandonedFiles.empty() && abandonedFiles.count(fileIdOf(ncid)) != 0;
}

} // namespace Ovard::gridio
