// SPDX-License-Identifier: BSD-3-Clause
// The attribute _FillValue of a variable.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <string>

namespace Ovard::gridio {

// In a netCDF-4 file, but deliberately not in one of the classic model, fill values can be set only
// with "defVarFill".
bool isGuardedFillValue(int ncid, int varid, const std::string& name, const OperationEntry* entry);

} // namespace Ovard::gridio
