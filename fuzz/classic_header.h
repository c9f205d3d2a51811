// SPDX-License-Identifier: BSD-3-Clause
// Damage in files of the classic formats that crashes the library.
#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

// False if the header declares more dimensions, variables, attributes, values or characters than
// the file has bytes left, or a variable of an unknown type. The library trusts such numbers, and
// crashes when memory for them cannot be allocated or they overflow; it divides by the size of an
// unknown type (docs/limits.md). True for any other damage, and for files of other formats.
bool isSurvivable(const std::uint8_t* bytes, std::size_t count);

} // namespace fuzz
