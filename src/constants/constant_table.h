// SPDX-License-Identifier: BSD-3-Clause
// The netCDF constants that scripts look up by name.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

struct ConstantEntry {
    double value;         // -1 for the rows whose value is typed: fill values by netCDF type
    const char* fullName; // as listed: "NC_GLOBAL"
    const char* shortName() const; // as looked up: without "NC_"; "NC2_ERR" has no such prefix
};

constexpr std::size_t constantCount = 114;

// The order is that of the list and of the look-up.
extern const ConstantEntry constantTable[constantCount];

} // namespace Ovard::gridio
