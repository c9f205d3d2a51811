// SPDX-License-Identifier: BSD-3-Clause
// Variables of damaged files, whose dimensions may be missing.
#pragma once

#include "check_status.h"

#include <netcdf.h>

namespace Ovard::gridio {

// Fails with NC_EBADDIM unless the file has each dimension of the variable's list, which holds
// count of them. Without this the library would crash when it is to access values of such a
// netCDF-4 variable, or to rename it.
inline void requireKnownDimensions(int ncid, const int* dimids, std::size_t count,
                                   const OperationEntry* entry)
{
    for (std::size_t i = 0; i < count; ++i)
        checkStatus(nc_inq_dim(ncid, dimids[i], nullptr, nullptr), entry);
}

} // namespace Ovard::gridio
