// SPDX-License-Identifier: BSD-3-Clause
// Calls of the operations on values of any type that succeed.
#pragma once

#include "tests/faults/operation_calls.h"

namespace faults {

std::vector<standalone::Value> anyArgumentsThatSucceed(const fuzz::Operation& operation,
                                                       const PreparedFile& file);

// Gives the type that the operation has defined a part, without which the file cannot be closed.
void completeNewType(const fuzz::Operation& operation, const PreparedFile& file);

} // namespace faults
