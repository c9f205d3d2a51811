// SPDX-License-Identifier: BSD-3-Clause
// Calls after which the library is not to be trusted any more in this process (docs/limits.md). The
// fuzzer leaves them out, since it would find nothing else.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/value.h"

#include <vector>

namespace fuzz {

// Whether the call is to give a dimension, variable or group of a netCDF-4 file a name that is
// there already: of the same kind it is refused, of another it may leave the file damaged.
bool isKnownFault(const Operation& operation, const std::vector<standalone::Value>& arguments);

} // namespace fuzz
