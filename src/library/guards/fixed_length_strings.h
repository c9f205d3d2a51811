// SPDX-License-Identifier: BSD-3-Clause
// Variables of strings that HDF5 stores with a fixed length, which other programs write.
// Release 4.9.0 reads them into memory for a single one, and takes them for pointers when it
// writes.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

// Whether a string variable of that rank is stored so.
bool hasFixedLengthStrings(int ncid, int varid, std::size_t rank, const OperationEntry* entry);

// Does for them what nc_get_vars does for other strings, and returns its status. A string ends at
// its first NUL, or at its length.
int getFixedLengthStrings(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                          const std::ptrdiff_t* stride, std::size_t rank, char** values,
                          const OperationEntry* entry);

} // namespace Ovard::gridio
