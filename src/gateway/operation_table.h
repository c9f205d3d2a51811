// SPDX-License-Identifier: BSD-3-Clause
// The table of all operations, in family order, and the look-up of a name.
#pragma once

#include "gateway/operation_rows.h"

namespace Ovard::gridio {

extern const OperationRows operationTable;

// The first row of that name, as findRow gives it.
const OperationEntry* findOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
