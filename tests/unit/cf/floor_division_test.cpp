// SPDX-License-Identifier: BSD-3-Clause
#include "cf/floor_division.h"

#include <gtest/gtest.h>

#include <limits>

namespace Ovard::gridio::cf {
namespace {

TEST(FloorDivide, RoundsDownWithARemainderThatIsNotNegative)
{
    for (std::int64_t number = -20; number <= 20; ++number)
        for (const std::int64_t divisor : {1, 3, 7}) {
            const std::int64_t remainder = floorRemainder(number, divisor);
            EXPECT_TRUE(remainder >= 0 && remainder < divisor) << number << " by " << divisor;
            EXPECT_EQ(floorDivide(number, divisor) * divisor + remainder, number);
        }
}

TEST(FloorDivide, HoldsAtBothEndsOfTheRange)
{
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(floorDivide(lowest, 1), lowest);
    EXPECT_EQ(floorDivide(lowest, 10), -922'337'203'685'477'581);
    EXPECT_EQ(floorRemainder(lowest, 10), 2);
    EXPECT_EQ(floorDivide(largest, 10), 922'337'203'685'477'580);
    EXPECT_EQ(floorRemainder(largest, 10), 7);
}

} // namespace
} // namespace Ovard::gridio::cf
