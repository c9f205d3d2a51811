// SPDX-License-Identifier: BSD-3-Clause
#include "library/storage_model.h"

namespace Ovard::gridio {

bool createsNetcdf4(int mode)
{
    if ((mode & (NC_64BIT_OFFSET | NC_64BIT_DATA | NC_CLASSIC_MODEL | NC_NETCDF4)) != 0)
        return (mode & NC_NETCDF4) != 0;
    int usual = 0;
    static_cast<void>(nc_set_default_format(NC_FORMAT_CLASSIC, &usual)); // the only inquiry
    static_cast<void>(nc_set_default_format(usual, nullptr));
    return usual == NC_FORMAT_NETCDF4 || usual == NC_FORMAT_NETCDF4_CLASSIC;
}

} // namespace Ovard::gridio
