// SPDX-License-Identifier: BSD-3-Clause
// Creating a Zarr store in a folder. Unless it is told to replace nothing, the library first
// deletes all that the folder holds, whatever it is.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the text is the address of a local folder that holds something and is no Zarr store.
bool isForeignFolder(const std::string& address);

} // namespace Ovard::gridio
