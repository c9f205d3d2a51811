// SPDX-License-Identifier: BSD-3-Clause
// Creating a Zarr store in a folder that holds something. Release 4.9.0 first deletes everything in
// the folder, whatever it is. With NC_NOCLOBBER it deletes and refuses nothing, but overwrites the
// description of a store, whose variables are then lost.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether nc_create with this mode would harm what the folder at a local address holds: a Zarr
// store may be replaced, if the mode allows that, and an empty folder be filled.
bool harmsFolder(const std::string& address, int mode);

} // namespace Ovard::gridio
