// SPDX-License-Identifier: BSD-3-Clause
// The third table of operations: those that the dataset classes are built on. It is no part of what
// scripts are offered.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio {

// The row of that name that takes so many arguments: a name may have several rows. Raises
// unrecognizedOperation and wrongNumberOfInputs.
const OperationEntry* findDatasetOperation(const char* name, unsigned nargs);

} // namespace Ovard::gridio
