// SPDX-License-Identifier: BSD-3-Clause
// Conversions that deliberately refuse nothing: mode numbers, dimension identifiers, chunk sizes
// and the chunk cache's preemption are passed on, and the library validates them. The result is
// defined for every double: that of the processor's truncating instruction.
#pragma once

#include <cstdint>

namespace Ovard::gridio {

// Truncated toward zero; NaN, infinities and values that do not fit become -2147483648.
std::int32_t truncateToInt32(double value);

// Truncated toward zero through a signed 64-bit conversion below 2^63: negative values wrap (-1
// becomes 18446744073709551615), NaN and values below -2^63 become 2^63. From 2^63 up, 2^63 is
// subtracted before that conversion and the top bit set after it, so that 2^64 and more, too,
// become 2^63.
std::uint64_t truncateToUint64(double value);

} // namespace Ovard::gridio
