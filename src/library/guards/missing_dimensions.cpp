// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/missing_dimensions.h"

#include "check_status.h"

#include <netcdf.h>

namespace Ovard::gridio {

void requireKnownDimensions(int ncid, const int* dimids, std::size_t count,
                            const OperationEntry* entry)
{
    for (std::size_t i = 0; i < count; ++i)
        checkStatus(nc_inq_dim(ncid, dimids[i], nullptr, nullptr), entry);
}

} // namespace Ovard::gridio
