// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/zero_alignments.h"

#include "library/storage_model.h"

namespace Ovard::gridio {
namespace {

bool hasVariables(int ncid)
{
    int count = 0;
    return nc_inq_nvars(ncid, &count) == NC_NOERR && count > 0;
}

// Probes with a definition that cannot succeed (an empty name): in data mode nc_def_dim fails with
// NC_ENOTINDEFINE before it checks the name.
bool isInDefineMode(int ncid)
{
    int dimid = 0;
    return nc_def_dim(ncid, "", 1, &dimid) != NC_ENOTINDEFINE;
}

} // namespace

bool dividesByAlignments(int ncid)
{
    return storageModel(ncid) == NC_FORMATX_NC3 && hasVariables(ncid) && isInDefineMode(ncid);
}

} // namespace Ovard::gridio
