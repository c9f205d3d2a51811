// SPDX-License-Identifier: BSD-3-Clause
// How many dimensions a variable may have for its data to be accessed.
#pragma once

#include "check_status.h"

#include <netcdf.h>

namespace Ovard::gridio {

// Fails with NC_EMAXDIMS for more than NC_MAX_VAR_DIMS: the library opens a classic file with such
// a variable, but its reads and writes would then write past the end of arrays of their own.
inline void requireAccessibleRank(int ndims, const OperationEntry* entry)
{
    if (ndims > NC_MAX_VAR_DIMS)
        checkStatus(NC_EMAXDIMS, entry);
}

} // namespace Ovard::gridio
