// SPDX-License-Identifier: BSD-3-Clause
// Attributes and fill values of compound types that have a string elsewhere than at the beginning.
// Release 4.9.3 copies such a string from the wrong place, whenever it writes or reads one of
// these: it drops the string, or crashes. Variables are right.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <string>
#include <string_view>

namespace Ovard::gridio {

// Whether a release, such as "4.9.3 of Feb 7 2025", does so.
bool misplacesStrings(std::string_view release);

// Whether a value of the type holds such a string, at any depth.
bool holdsStringBehindItsStart(int ncid, nc_type xtype, const OperationEntry* entry);

// Raises NC_EBADTYPE for such a type where the release misplaces strings.
void requirePlacedStrings(int ncid, nc_type xtype, const OperationEntry* entry);

// The same for the type of an attribute.
void requirePlacedStringsIn(int ncid, int varid, const std::string& attribute,
                            const OperationEntry* entry);

} // namespace Ovard::gridio
