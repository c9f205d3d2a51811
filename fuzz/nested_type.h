// SPDX-License-Identifier: BSD-3-Clause
// Types of every kind and one that holds them all, for the fuzzers and the fault tests.
#pragma once

#include "hosts/standalone/value.h"

#include <cstddef>

namespace fuzz {

// Adds to a netCDF-4 file whose first dimension is "x": enumeration "sky", vlen "words" of strings,
// opaque "blob", compound "pair" with free bytes, compound "nested" of all but the last; variable
// "u" (x) of "nested", with the attribute "range". Returns the variable's identifier.
int addNestedType(int ncid);

// As many values of the type "nested" as a script writes them.
standalone::Value nestedValues(std::size_t count);

} // namespace fuzz
