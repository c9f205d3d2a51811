// SPDX-License-Identifier: BSD-3-Clause
// The group of a netCDF-4 file in which a type is defined.
#pragma once

#include "library/hdf5_file.h"

#include <netcdf.h>

#include <optional>

namespace Ovard::gridio {

// The group in which a user-defined type is defined: ncid, one of its parents, or any other group
// of the file. None if there is no such type.
std::optional<int> groupOfType(int ncid, nc_type xtype, const OperationEntry* entry);

// Whether a group is the other one or one of its parents.
bool isAround(int group, int other, const OperationEntry* entry);

// The type as HDF5 stores it; none while it is defined but not yet written to the file, and in
// files that are not stored in HDF5.
Hdf5Id openStoredType(int ncid, nc_type xtype, const OperationEntry* entry);

} // namespace Ovard::gridio
