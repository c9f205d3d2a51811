// SPDX-License-Identifier: BSD-3-Clause
// Opening a file in memory by its flag alone, without the memory: release 4.9.0 crashes, unless
// another flag makes it refuse the mode. From 4.9.3 on, flags of user-defined formats make it no
// longer.
#pragma once

#include <netcdf.h>

namespace Ovard::gridio {

// What nc_open with this mode is refused with, in every release alike; NC_NOERR where nc_open would
// not crash.
inline int refusalOfMissingMemory(int mode)
{
    if ((mode & (NC_INMEMORY | NC_DISKLESS | NC_MMAP)) != NC_INMEMORY)
        return NC_NOERR;
    return (mode & (NC_UDF0 | NC_UDF1)) != 0 ? NC_ENOTBUILT : NC_EINVAL;
}

} // namespace Ovard::gridio
