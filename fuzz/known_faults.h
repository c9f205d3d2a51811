// SPDX-License-Identifier: BSD-3-Clause
// Calls that the fuzzer leaves out: known faults that would hide others, and calls that take too
// long.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/value.h"

#include <vector>

namespace fuzz {

// Whether the call would give a dimension, variable or group of a netCDF-4 file a name that already
// exists: within one kind it is refused, across kinds it may damage the file, and the library must
// not be used any further in this process (docs/limits.md).
bool isKnownFault(const Operation& operation, const std::vector<standalone::Value>& arguments);

// Whether the call writes far from the start of a file in memory. If that is a new record, the
// library fills all records before it, copying the whole file at each step, which takes a minute.
bool growsFileInMemory(const Operation& operation, const std::vector<standalone::Value>& arguments);

} // namespace fuzz
