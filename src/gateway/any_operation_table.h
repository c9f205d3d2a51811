// SPDX-License-Identifier: BSD-3-Clause
// The second table of operations: those on values of any type, and the look-up of a name in it.
#pragma once

#include "gateway/operation_rows.h"

namespace Ovard::gridio {

extern const OperationRows anyOperationTable;

// The row of that name, as findRow gives it.
const OperationEntry* findAnyOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
