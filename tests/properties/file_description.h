// SPDX-License-Identifier: BSD-3-Clause
// Everything that a file holds, as the library reads it: names, types, shapes, settings, attributes
// and every byte of every value.
#pragma once

#include <string>

namespace properties {

// Marks an incomplete description: the library creates some files that it cannot read.
constexpr const char* unreadable = "cannot be read further: ";

// Files of equal content give equal text. Throws std::runtime_error when the library
// cannot open the file.
std::string describeFile(const std::string& path);

} // namespace properties
