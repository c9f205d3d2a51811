// SPDX-License-Identifier: BSD-3-Clause
// Variables of classic files with more than NC_MAX_VAR_DIMS dimensions. Release 4.9.0 opens such a
// file, but its reads and writes of the variable write past the end of internal arrays.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio {

// Raises NC_EMAXDIMS for a rank whose values the library cannot access.
void requireAccessibleRank(int ndims, const OperationEntry* entry);

} // namespace Ovard::gridio
