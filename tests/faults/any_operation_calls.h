// SPDX-License-Identifier: BSD-3-Clause
// What the operations on values of any type need in order to succeed: types in the prepared file,
// and arguments.
#pragma once

#include "tests/faults/operation_calls.h"

namespace faults {

// Types of each kind, and the variable and the attribute that hold them all: enumeration "sky",
// vlen "words" of strings, opaque "blob", compound "pair" with free bytes, compound "nested" of all
// but the last; variable "u" (x) with the attribute "typed".
void addTypes(int ncid);

std::vector<standalone::Value> anyArgumentsThatSucceed(const fuzz::Operation& operation,
                                                       const PreparedFile& file);

// Gives the type that the operation has defined a part, without which the file cannot be closed.
void completeNewType(const fuzz::Operation& operation, const PreparedFile& file);

} // namespace faults
