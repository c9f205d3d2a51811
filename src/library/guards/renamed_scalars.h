// SPDX-License-Identifier: BSD-3-Clause
// Renaming a scalar variable of a netCDF-4 group to the name of one of its dimensions:
// release 4.9.0 takes the variable for the dimension's coordinate variable, and crashes since it
// has no dimension.
#pragma once

#include "operation_entry.h"

#include <string>

namespace Ovard::gridio {

// Whether the name is that of a dimension of this group itself, not of a parent.
bool isOwnDimension(int ncid, const std::string& name, const OperationEntry* entry);

} // namespace Ovard::gridio
