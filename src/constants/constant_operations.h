// SPDX-License-Identifier: BSD-3-Clause
// "parameter" and "getConstantNames".
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio::operations {

// The value of the constant of that name, in any case, with or without "NC_".
HandlerFunction parameter;

// Every name with its prefix, a 114-by-1 cell array.
HandlerFunction getConstantNames;

} // namespace Ovard::gridio::operations
