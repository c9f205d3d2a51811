// SPDX-License-Identifier: BSD-3-Clause
// Writing a _FillValue that does not match its variable of a netCDF-4 file. Release 4.9.0 refuses
// one of another type only after it has half replaced the old attribute, and crashes when the file
// is closed; one of several values leaves an empty attribute.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <cstddef>
#include <string>

namespace Ovard::gridio {

// Raises NC_EBADTYPE for a _FillValue of another type than its variable's, and NC_EINVAL for one
// that is not one value. Ignores every other attribute.
void requireMatchingFillValue(int ncid, int varid, const std::string& attribute, nc_type xtype,
                              std::size_t count, const OperationEntry* entry);

} // namespace Ovard::gridio
