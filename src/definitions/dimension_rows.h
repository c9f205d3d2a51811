// SPDX-License-Identifier: BSD-3-Clause
// Rows of dimension identifiers and of chunk sizes: one number for each dimension of a variable, in
// the host's order. Deliberately simpler than the index vectors of the subset operations: only
// class double, possibly empty, at most 1024 elements, no check of any element.
#pragma once

#include "vx/array.h"

#include <string_view>
#include <vector>

namespace Ovard::gridio {

// Both read the elements in storage order whatever the shape, and return them reversed, in the
// library's order. Raise badRowDatatype(name) for another class, rowLengthOutOfBounds(name, 1024)
// for more than 1024 elements, and throw a Boost overflow for more than 2147483647.
std::vector<int> toDimIdVector(const vxArray* row, std::string_view name); // truncateToInt32
std::vector<std::size_t> toChunkSizeVector(const vxArray* row,
                                           std::string_view name); // truncateToUint64

} // namespace Ovard::gridio
