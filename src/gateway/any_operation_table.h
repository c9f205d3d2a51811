// SPDX-License-Identifier: BSD-3-Clause
// The second table of operations: those on values of any type, and the look-up of a name in it.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t anyOperationCount = 46;
extern const OperationEntry anyOperationTable[anyOperationCount];

// The row of that name, as findRow gives it.
const OperationEntry* findAnyOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
