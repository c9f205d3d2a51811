// SPDX-License-Identifier: BSD-3-Clause
// Elements of 1, 2, 4 or 8 bytes, which need not be aligned.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

// Copies count of them: the first, and others step elements apart. isSwapped reverses the bytes of
// each. Source and destination may be the same if there is no step; otherwise they must not
// overlap.
void copyElements(const unsigned char* source, std::size_t size, std::size_t step,
                  std::size_t count, bool isSwapped, unsigned char* destination);

// Writes an element count times.
void repeatElement(const unsigned char* element, std::size_t size, std::size_t count,
                   unsigned char* destination);

} // namespace Ovard::gridio
