// SPDX-License-Identifier: BSD-3-Clause
// A number that is the same for files whose variables can be joined as they are.
#pragma once

#include "operation_entry.h"

#include <string>

namespace Ovard::gridio {

// What may differ between the files, by full names: "/time".
struct JoinedNames {
    std::string dimension;  // its length
    std::string coordinate; // its units and calendar
    std::string bounds;     // of the coordinate: their units and calendar
};

// Made of the names and lengths of all dimensions, the names, types and dimensions of all
// variables, and the attributes that say how their values are decoded: a whole number below 2^52.
// Raises the library's failures.
double fingerprintOf(int ncid, const JoinedNames& joined, const OperationEntry* entry);

} // namespace Ovard::gridio
