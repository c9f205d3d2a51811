// SPDX-License-Identifier: BSD-3-Clause
// Shapes and sizes.
#include "data/elements/shapes.h"

#include "tests/support/module_test.h"

#include <boost/numeric/conversion/cast.hpp>

using namespace Ovard::gridio;
using testing::ElementsAre;

namespace {

TEST(ToHostDimensions, ReversesAndPadsWithOnesToTwo)
{
    EXPECT_THAT(toHostDimensions({}), ElementsAre(1U, 1U));
    EXPECT_THAT(toHostDimensions({5}), ElementsAre(5U, 1U));
    EXPECT_THAT(toHostDimensions({2, 3}), ElementsAre(3U, 2U));
    EXPECT_THAT(toHostDimensions({4, 3, 2}), ElementsAre(2U, 3U, 4U));
    EXPECT_THAT(toHostDimensions({0}), ElementsAre(0U, 1U));
    EXPECT_THAT(toHostDimensions({0, 3, 2}), ElementsAre(2U, 3U, 0U));
}

TEST(ToHostDimensions, KeepsEveryOneOfManyDimensions)
{
    SizeVector lengths(1024, 1);
    lengths.front() = 7;
    const SizeVector dims = toHostDimensions(lengths);
    ASSERT_EQ(dims.size(), 1024U);
    EXPECT_EQ(dims.back(), 7U);
}

TEST(ProductOf, MultipliesAndIsOneOfNothing)
{
    EXPECT_EQ(productOf({}), 1U);
    EXPECT_EQ(productOf({7}), 7U);
    EXPECT_EQ(productOf({2, 3, 4}), 24U);
    const std::size_t half = std::size_t{1} << 32;
    EXPECT_EQ(productOf({half, half - 1}), half * (half - 1));
}

TEST(ProductOf, OverflowsWhenItDoesNotFit)
{
    const std::size_t half = std::size_t{1} << 32;
    EXPECT_THROW(productOf({half, half}), boost::numeric::positive_overflow);
    EXPECT_THROW(productOf({~std::size_t{0}, 1, 2}), boost::numeric::positive_overflow);
}

TEST(ProductOf, IsZeroWithAZeroWhereverItStands)
{
    const std::size_t huge = ~std::size_t{0};
    EXPECT_EQ(productOf({0, huge, huge}), 0U);
    EXPECT_EQ(productOf({huge, huge, 0}), 0U);
}

} // namespace
