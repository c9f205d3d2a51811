// SPDX-License-Identifier: BSD-3-Clause
// Unloading the netCDF library while HDF5 stays loaded, which the interpreter itself may use:
// releases 4.9.1 and 4.9.2 that can read byte ranges leave HDF5 with a driver of theirs, which HDF5
// calls at the end of the process. Such a release is kept loaded.
#pragma once

#include <string_view>

namespace Ovard::gridio {

// Whether a release, such as "4.9.2 of Jan 16 2023", may do so. Most builds of it do not read byte
// ranges, but do not say so.
bool leavesItsDriverBehind(std::string_view release);

} // namespace Ovard::gridio
