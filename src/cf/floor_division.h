// SPDX-License-Identifier: BSD-3-Clause
// Division that rounds down, for counts of days before a fixed day.
#pragma once

#include <cstdint>

namespace Ovard::gridio::cf {

// The divisor is positive.
constexpr std::int64_t floorDivide(std::int64_t number, std::int64_t divisor)
{
    return number / divisor - (number % divisor < 0 ? 1 : 0);
}

// The remainder of floorDivide: 0 to divisor - 1.
constexpr std::int64_t floorRemainder(std::int64_t number, std::int64_t divisor)
{
    const std::int64_t remainder = number % divisor;
    return remainder < 0 ? remainder + divisor : remainder;
}

} // namespace Ovard::gridio::cf
