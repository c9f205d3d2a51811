// SPDX-License-Identifier: BSD-3-Clause
// Values of any element type of the table, for tests that loop over the table: made from bytes and
// compared as bytes, without the module's conversions.
#pragma once

#include "data/elements/element_types.h"
#include "hosts/standalone/value.h"

#include <string>
#include <vector>

namespace testsupport {

// Elements in the library's form: C elements of the type, one byte for each character.
using Bytes = std::string;

// count elements of the type: first its extremes and oddities (of a floating type: NaN with a
// payload, both infinities, -0, the smallest), then small numbers. Of Text: NUL, every kind of high
// byte, letters.
Bytes sampleBytes(const Ovard::gridio::ElementType& element, std::size_t count);

// 0, 1, 2, ... count-1 as elements of that type.
Bytes countingBytes(const Ovard::gridio::ElementType& element, std::size_t count);

// The script's value with those bytes. Characters are widened by sign extension.
standalone::Value valueOfBytes(vxClassID classId, const standalone::Dims& dims, const Bytes& bytes);

// The reverse; for a char array the low byte of each unit.
Bytes bytesOfValue(const standalone::Value& value);

// Whether operations on variables have the type, and not only those on attributes ("Ubyte").
bool servesVariables(const Ovard::gridio::ElementType& element);

// "getVara" and "Double" make "getVaraDouble"; the two names with a capital I are spelled as they
// are.
std::string operationName(const std::string& form, const std::string& suffix);

} // namespace testsupport
