// SPDX-License-Identifier: BSD-3-Clause
// Creating a Zarr store in a folder that is not empty. Release 4.9.0 first deletes everything in
// the folder, whatever it is. With NC_NOCLOBBER it neither deletes nor refuses, but overwrites the
// description of a store, whose variables are then lost.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether nc_create with this mode would destroy the content of the folder at a local address. A
// Zarr store may be replaced if the mode allows it, and an empty folder may be filled.
bool harmsFolder(const std::string& address, int mode);

} // namespace Ovard::gridio
