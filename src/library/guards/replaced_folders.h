// SPDX-License-Identifier: BSD-3-Clause
// Creating a Zarr store in a folder: without NC_NOCLOBBER, release 4.9.0 first deletes everything
// in the folder, whatever it is.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the text is the address of a local folder that holds something and is not a Zarr store.
bool isForeignFolder(const std::string& address);

} // namespace Ovard::gridio
