// SPDX-License-Identifier: BSD-3-Clause
// Renaming a dimension of a netCDF-4 file. The library reads the description of a variable at the
// first inquiry, and then finds its dimensions by their stored names: after a renaming, release
// 4.9.0 gives a variable that was not inquired before wrong dimension identifiers, and cannot close
// the file.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio {

// Makes the library read every variable of the file that ncid belongs to, once per file. Must be
// called before nc_rename_dim. A variable that cannot be read is skipped.
void inquireEveryVariable(int ncid, const OperationEntry* entry);

} // namespace Ovard::gridio
