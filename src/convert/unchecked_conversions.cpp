// SPDX-License-Identifier: BSD-3-Clause
#include "convert/unchecked_conversions.h"

#include <limits>

namespace Ovard::gridio {
namespace {

constexpr double twoTo63 = 9223372036854775808.0;
constexpr std::uint64_t topBit = std::uint64_t{1} << 63;

// A value that does not fit, including NaN, becomes the lowest value.
std::int64_t truncateToInt64(double value)
{
    const bool fits = value >= -twoTo63 && value < twoTo63;
    return fits ? static_cast<std::int64_t>(value) : std::numeric_limits<std::int64_t>::min();
}

} // namespace

std::int32_t truncateToInt32(double value)
{
    const bool fits = value > -2147483649.0 && value < 2147483648.0;
    return fits ? static_cast<std::int32_t>(value) : std::numeric_limits<std::int32_t>::min();
}

std::uint64_t truncateToUint64(double value)
{
    if (value >= twoTo63)
        return static_cast<std::uint64_t>(truncateToInt64(value - twoTo63)) | topBit;
    return static_cast<std::uint64_t>(truncateToInt64(value));
}

} // namespace Ovard::gridio
