// SPDX-License-Identifier: BSD-3-Clause
// Creating a netCDF-4 file when the library has as many files open as it can hold: release 4.9.0
// crashes.
#pragma once

namespace Ovard::gridio {

// Whether nc_create with this mode would crash.
bool overflowsFileTable(int mode);

} // namespace Ovard::gridio
