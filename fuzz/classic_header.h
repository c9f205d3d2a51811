// SPDX-License-Identifier: BSD-3-Clause
// Damage that the library does not survive in files of the classic formats.
#pragma once

#include <cstddef>
#include <cstdint>

namespace fuzz {

// False when the header announces more dimensions, variables, attributes, values or characters than
// the file has bytes left, or a variable of an unknown type: the library believes the former, and
// crashes when memory for that many is not to be had or their number overflows, and divides by the
// size of the latter (docs/limits.md). Whatever else is wrong, and files of other formats, are
// fine.
bool isSurvivable(const std::uint8_t* bytes, std::size_t count);

} // namespace fuzz
