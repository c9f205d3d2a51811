// SPDX-License-Identifier: BSD-3-Clause
// Variables of strings that HDF5 stores with a fixed length, which other programs write.
// Release 4.9.0 reads them into memory for one of them, and takes them for pointers when it writes.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

// Whether a variable of strings of that rank is such a one.
bool hasFixedLengthStrings(int ncid, int varid, std::size_t rank, const OperationEntry* entry);

// What nc_get_vars does for other strings, with its status. A string ends at its first NUL, or at
// its length.
int getFixedLengthStrings(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                          const std::ptrdiff_t* stride, std::size_t rank, char** values,
                          const OperationEntry* entry);

} // namespace Ovard::gridio
