// SPDX-License-Identifier: BSD-3-Clause
// Creating a netCDF-4 file over one that another program has open: HDF5 1.10.8 empties the file
// before it detects the lock, so that nc_create of release 4.9.0 fails and the data are lost.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether nc_create with this mode would empty a file that is locked.
bool emptiesLockedFile(const std::string& path, int mode);

} // namespace Ovard::gridio
