// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/fill_attributes.h"

#include "check_status.h"

namespace Ovard::gridio {

bool isGuardedFillValue(int ncid, int varid, const std::string& name, const OperationEntry* entry)
{
    int format = 0;
    checkStatus(nc_inq_format(ncid, &format), entry);
    return format == NC_FORMAT_NETCDF4 && varid != NC_GLOBAL && name == "_FillValue";
}

} // namespace Ovard::gridio
