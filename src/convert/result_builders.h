// SPDX-License-Identifier: BSD-3-Clause
// Builders of the results that are not data: numbers, names, identifier lists and flags.
#pragma once

#include "vx/array.h"

#include <vector>

namespace Ovard::gridio {

// A double scalar that holds v exactly.
vxArray* intResult(int v);

// A double scalar: v as an unsigned number, rounded to nearest above 2^53, never negative.
vxArray* sizeResult(std::size_t v);

// A 1-by-n double row in the order of ids; 0-by-0, not 1-by-0, when the list is empty.
vxArray* idVectorToRow(const std::vector<int>& ids);

// A char row of the NUL-terminated narrow text.
vxArray* textResult(const char* s);

// A logical scalar.
vxArray* flagResult(bool b);

} // namespace Ovard::gridio
