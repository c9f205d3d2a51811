// SPDX-License-Identifier: BSD-3-Clause
// Structures and columns as results.
#pragma once

#include "vx/array.h"

#include <string>
#include <utility>
#include <vector>

namespace Ovard::gridio {

using Fields = std::vector<std::pair<const char*, vxArray*>>;

// A structure of one element with these fields, in this order.
vxArray* structureResult(const Fields& fields);

// Columns, n-by-1, also of no element.
vxArray* numberColumn(const std::vector<double>& numbers);
vxArray* textColumn(const std::vector<std::string>& texts);

// A row, 1-by-n; 1-by-0 of no element.
vxArray* numberRow(const std::vector<double>& numbers);

// A cell array of so many rows and columns, of empty cells.
vxArray* emptyCells(std::size_t rows, std::size_t columns);

} // namespace Ovard::gridio
