// SPDX-License-Identifier: BSD-3-Clause
// Opening a file in memory by its flag alone, without the memory: release 4.9.0 crashes, unless
// another flag makes it refuse the mode.
#pragma once

#include <netcdf.h>

namespace Ovard::gridio {

// Whether nc_open with this mode would crash.
inline bool namesMissingMemory(int mode)
{
    return (mode & (NC_INMEMORY | NC_DISKLESS | NC_MMAP | NC_UDF0 | NC_UDF1)) == NC_INMEMORY;
}

} // namespace Ovard::gridio
