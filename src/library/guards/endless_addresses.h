// SPDX-License-Identifier: BSD-3-Clause
// Addresses with which nc_open and nc_create of release 4.9.0 never return: while they determine
// the kind of store, they expand the word "zarr" at the end of a mode list endlessly.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the text is an address whose mode list, as in "#mode=zarr", ends with one of the words
// for Zarr instead of the kind of store ("#mode=zarr,file").
bool isEndlessAddress(const std::string& address);

} // namespace Ovard::gridio
