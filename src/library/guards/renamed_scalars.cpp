// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/renamed_scalars.h"

#include "check_status.h"

#include <netcdf.h>

#include <algorithm>
#include <vector>

namespace Ovard::gridio {

bool isOwnDimension(int ncid, const std::string& name, const OperationEntry* entry)
{
    int dimid = 0;
    if (nc_inq_dimid(ncid, name.c_str(), &dimid) != NC_NOERR)
        return false;
    int count = 0;
    checkStatus(nc_inq_dimids(ncid, &count, nullptr, 0), entry);
    std::vector<int> own(static_cast<std::size_t>(count));
    checkStatus(nc_inq_dimids(ncid, nullptr, own.data(), 0), entry);
    return std::find(own.begin(), own.end(), dimid) != own.end();
}

} // namespace Ovard::gridio
