// SPDX-License-Identifier: BSD-3-Clause
// Writing values of a user-defined type that the file stores in another layout or byte order than
// this machine's C compiler would. Release 4.9.0 returns such values as in a C structure, but
// expects values to be written in the file's layout.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

namespace Ovard::gridio {

// False for a type whose values the library would write incorrectly.
bool isStoredAsInMemory(int ncid, nc_type xtype, const OperationEntry* entry);

} // namespace Ovard::gridio
