// SPDX-License-Identifier: BSD-3-Clause
// Variables of damaged netCDF-4 files, whose dimensions may be missing. Release 4.9.0 crashes when
// it reads, writes or renames such a variable.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

// Raises NC_EBADDIM if any of the count dimension identifiers is missing from the file.
void requireKnownDimensions(int ncid, const int* dimids, std::size_t count,
                            const OperationEntry* entry);

} // namespace Ovard::gridio
