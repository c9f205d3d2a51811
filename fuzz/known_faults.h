// SPDX-License-Identifier: BSD-3-Clause
// Calls that the fuzzer leaves out, since it would find or do nothing else.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/value.h"

#include <vector>

namespace fuzz {

// Whether the call is to give a dimension, variable or group of a netCDF-4 file a name that is
// there already: of the same kind it is refused, of another it may leave the file damaged.
// After that the library is not to be trusted any more in this process (docs/limits.md).
bool isKnownFault(const Operation& operation, const std::vector<standalone::Value>& arguments);

// Whether the call writes far from the start of a file in memory. If that is a new record, the
// library fills all before it, in steps that copy the whole file: for a minute.
bool growsFileInMemory(const Operation& operation, const std::vector<standalone::Value>& arguments);

} // namespace fuzz
