// SPDX-License-Identifier: BSD-3-Clause
// The table of all operations, in family order, and the look-up of a name.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t operationCount = 163;
extern const OperationEntry operationTable[operationCount];

// The first row of that name, as findRow gives it.
const OperationEntry* findOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
