// SPDX-License-Identifier: BSD-3-Clause
// Everything that a file holds, as the library reads it: names, types, shapes, settings, attributes
// and every byte of every value.
#pragma once

#include <string>

namespace properties {

// Stands where the description ends early: the library makes some files that it cannot read.
constexpr const char* unreadable = "cannot be read further: ";

// Two files that hold the same give the same text. Throws std::runtime_error when the library
// cannot open the file.
std::string describeFile(const std::string& path);

} // namespace properties
