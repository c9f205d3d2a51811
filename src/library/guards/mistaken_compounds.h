// SPDX-License-Identifier: BSD-3-Clause
// Inquiring a field of a type that is not a compound type: release 4.9.0 does not check the class
// of the type, and crashes.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

namespace Ovard::gridio {

// Raises NC_EBADTYPE unless the type is a compound type.
void requireCompound(int ncid, nc_type xtype, const OperationEntry* entry);

} // namespace Ovard::gridio
