// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/oversized_ranks.h"

#include "check_status.h"

#include <netcdf.h>

namespace Ovard::gridio {

void requireAccessibleRank(int ndims, const OperationEntry* entry)
{
    if (ndims > NC_MAX_VAR_DIMS)
        raiseLibraryFailure(NC_EMAXDIMS, entry);
}

} // namespace Ovard::gridio
