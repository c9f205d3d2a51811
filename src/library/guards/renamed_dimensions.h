// SPDX-License-Identifier: BSD-3-Clause
// Renaming a dimension of a netCDF-4 file. The library reads what a variable is made of when it is
// first asked, and then looks for its dimensions by their old names: release 4.9.0 gives a variable
// that it first sees after the renaming wrong dimension identifiers, and cannot close the file.
#pragma once

#include "operation_entry.h"

namespace Ovard::gridio {

// Makes the library read every variable of the file that ncid belongs to, once for a file. To be
// called before nc_rename_dim. A variable that cannot be read is passed over.
void inquireEveryVariable(int ncid, const OperationEntry* entry);

} // namespace Ovard::gridio
