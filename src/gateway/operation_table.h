// SPDX-License-Identifier: BSD-3-Clause
// The table of all operations, in family order, and the look-up of a name.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t operationCount = 163;
extern const OperationEntry operationTable[operationCount];

// The first row of that name: a plain scan, names compared byte for byte. Raises
// unrecognizedOperation with the name when there is none, and wrongNumberOfInputs when that first
// row expects another number of arguments, also if a later row of the same name would take it. A
// null name is unrecognized, with an empty text.
const OperationEntry* findOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
