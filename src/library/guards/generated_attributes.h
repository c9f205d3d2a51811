// SPDX-License-Identifier: BSD-3-Clause
// Reading the attributes that the library generates for netCDF-4 files: _NCProperties, _IsNetcdf4
// and _SuperblockVersion. Whatever type is requested, release 4.9.0 writes a whole int or a NUL
// after the text, past the length that it reports, and may leave part of a longer result unwritten.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

// The minimum size of a buffer for attribute values. Larger ones must be zeroed first.
constexpr std::size_t leastAttributeBytes = sizeof(int);

} // namespace Ovard::gridio
