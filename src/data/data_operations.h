// SPDX-License-Identifier: BSD-3-Clause
// Reading and writing the values of variables. One handler serves each family; the row's code names
// the element type. Values lie in one block, never transposed: the host's dimensions are the
// variable's in reverse order.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio::operations {

// Every value of a variable: ncid, varid -> values, at least two dimensions (the nc_get_var_double
// family).
HandlerFunction getVar;

// Every value of a variable: ncid, varid, values of any shape with as many elements
// (nc_put_var_double family).
HandlerFunction putVar;

// One value, a block or a strided block: ncid, varid, START[, COUNT[, STRIDE]] -> values shaped as
// COUNT (the nc_get_vars_double family). START is zero-based.
HandlerFunction getVarSubset;

// The same for writing, the values last (the nc_put_vars_double family). Appends along an unlimited
// dimension.
HandlerFunction putVarSubset;

} // namespace Ovard::gridio::operations
