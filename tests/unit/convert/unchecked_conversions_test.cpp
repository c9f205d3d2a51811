// SPDX-License-Identifier: BSD-3-Clause
#include "convert/unchecked_conversions.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace Ovard::gridio {
namespace {

constexpr double inf = std::numeric_limits<double>::infinity();
constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double twoTo63 = 9223372036854775808.0;
constexpr double twoTo64 = 18446744073709551616.0;

TEST(TruncateToInt32, GivesEveryDoubleItsOneValue)
{
    constexpr std::int32_t lowest = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t highest = std::numeric_limits<std::int32_t>::max();
    const struct {
        double value;
        std::int32_t expected;
    } cases[] = {
        {0.0, 0},
        {-0.0, 0},
        {1.9, 1},
        {-0.5, 0},
        {-1.9, -1},
        {4352.0, 4352},
        {2147483646.5, highest - 1},
        {2147483647.0, highest},
        {2147483647.9, highest},
        {std::nextafter(2147483648.0, 0.0), highest},
        {2147483648.0, lowest},
        {4294967296.0, lowest},
        {-2147483647.9, -highest},
        {-2147483648.0, lowest},
        {-2147483648.9, lowest},
        {-2147483649.0, lowest},
        {-1e300, lowest},
        {1e300, lowest},
        {inf, lowest},
        {-inf, lowest},
        {nan, lowest},
        {-nan, lowest},
        {std::numeric_limits<double>::denorm_min(), 0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(truncateToInt32(c.value), c.expected) << c.value;
}

TEST(TruncateToUint64, GivesEveryDoubleItsOneValue)
{
    constexpr std::uint64_t topBit = 9223372036854775808U;
    const struct {
        double value;
        std::uint64_t expected;
    } cases[] = {
        {0.0, 0},
        {-0.0, 0},
        {100.7, 100},
        {0.9, 0},
        {-0.9, 0},
        {-1.0, 18446744073709551615U},
        {-1.9, 18446744073709551615U},
        {-2.0, 18446744073709551614U},
        {4294967296.0, 4294967296U},
        {9007199254740993.0, 9007199254740992U},
        {std::nextafter(twoTo63, 0.0), topBit - 1024},
        {twoTo63, topBit},
        {twoTo63 + 2048, topBit + 2048},
        {std::nextafter(twoTo64, 0.0), 18446744073709549568U},
        {twoTo64, topBit},
        {2 * twoTo64, topBit},
        {1e300, topBit},
        {inf, topBit},
        {-std::nextafter(twoTo63, 0.0), topBit + 1024},
        {-twoTo63, topBit},
        {-std::nextafter(twoTo63, inf), topBit},
        {-twoTo64, topBit},
        {-1e300, topBit},
        {-inf, topBit},
        {nan, topBit},
        {-nan, topBit},
    };
    for (const auto& c : cases)
        EXPECT_EQ(truncateToUint64(c.value), c.expected) << c.value;
}

TEST(TruncateToUint64, SetsTheTopBitAndDoesNotToggleIt)
{
    // 2^64 less 2^63 is 2^63 again, which has the top bit already
    EXPECT_EQ(truncateToUint64(twoTo64), std::uint64_t{1} << 63);
}

} // namespace
} // namespace Ovard::gridio
