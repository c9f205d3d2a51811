// SPDX-License-Identifier: BSD-3-Clause
// Creating a file in a user-defined format that no program has registered: release 4.9.0 crashes.
#pragma once

#include <netcdf.h>

namespace Ovard::gridio {

// Whether nc_create with this mode would crash.
inline bool namesUnregisteredFormat(int mode) { return (mode & (NC_UDF0 | NC_UDF1)) != 0; }

} // namespace Ovard::gridio
