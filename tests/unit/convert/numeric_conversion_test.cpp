// SPDX-License-Identifier: BSD-3-Clause
// Cases that the scalar readers do not reach; numeric_readers_test.cpp has the bounds.
#include "convert/numeric_conversion.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <limits>
#include <type_traits>

namespace Ovard::gridio {
namespace {

TEST(ConvertChecked, GivesExactlyTheTargetType)
{
    static_assert(std::is_same_v<decltype(convertChecked<std::ptrdiff_t>(1.0)), std::ptrdiff_t>);
    EXPECT_EQ(convertChecked<std::ptrdiff_t>(-3.9), -3);
    EXPECT_EQ(convertChecked<std::size_t>(3.9F), 3U);
}

TEST(ConvertChecked, ThrowsTheOverflowOfItsSide)
{
    EXPECT_THROW(convertChecked<std::size_t>(-1), boost::numeric::negative_overflow);
    EXPECT_THROW(convertChecked<signed char>(128), boost::numeric::positive_overflow);
    EXPECT_THROW(convertChecked<int>(1e300), boost::numeric::positive_overflow);
    EXPECT_THROW(convertChecked<float>(-1e300), boost::numeric::negative_overflow);
}

TEST(ConvertChecked, FindsNanOutOfRangeForIntegersOnly)
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THROW(convertChecked<int>(nan), boost::numeric::bad_numeric_cast);
    EXPECT_THROW(convertChecked<std::ptrdiff_t>(-nan), boost::numeric::bad_numeric_cast);
    EXPECT_TRUE(std::isnan(convertChecked<float>(nan)));
    EXPECT_TRUE(std::isnan(convertChecked<double>(nan)));
}

} // namespace
} // namespace Ovard::gridio
