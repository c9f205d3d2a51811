// SPDX-License-Identifier: BSD-3-Clause
// The shuffle filter: the first bytes of all elements, then their second bytes and so on, which
// compresses better.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

// From count elements of size bytes to as many planes of count bytes, and back. The two may not
// overlap.
void shuffleBytes(const unsigned char* elements, std::size_t count, std::size_t size,
                  unsigned char* planes);
void unshuffleBytes(const unsigned char* planes, std::size_t count, std::size_t size,
                    unsigned char* elements);

// The elements first to first + count of planes of planeLength bytes. size is at most 8. isSwapped
// reverses the bytes of each element.
void unshuffleRun(const unsigned char* planes, std::size_t planeLength, std::size_t first,
                  std::size_t count, std::size_t size, bool isSwapped, unsigned char* elements);

} // namespace Ovard::gridio
