// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"

#include <cmath>
#include <limits>

using standalone::Dims;
using standalone::Value;
using testsupport::raisesInDatasets;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();

class Pack : public testsupport::DatasetTest {};

} // namespace

TEST_F(Pack, RoundsToTheNearestOfTheType)
{
    const Value none = Value::empty();
    const Value values = Value::numeric<double>({2, 3}, {1.5, 2.5, -0.4, 7, 10, 11.26});
    EXPECT_EQ(result("pack", {values, "short", 1, 0, none}),
              Value::numeric<std::int16_t>({2, 3}, {2, 2, 0, 7, 10, 11}));
    EXPECT_EQ(result("pack", {values, "ubyte", 0.5, -1, none}),
              Value::numeric<std::uint8_t>({2, 3}, {5, 7, 1, 16, 22, 25}));
    EXPECT_EQ(result("pack", {values, "float", 2, 0, none}),
              Value::numeric<float>({2, 3}, {0.75F, 1.25F, -0.2F, 3.5F, 5, 5.63F}));
}

TEST_F(Pack, StoresTheFillValueForNaN)
{
    const Value none = Value::empty();
    const Value values = Value::row<double>({1, gap});
    EXPECT_EQ(result("pack", {values, "short", 0.1, 0, -99}), Value::row<std::int16_t>({10, -99}));
    EXPECT_EQ(result("pack", {values, "float", 1, 0, 1e20}), Value::row<float>({1, 1e20F}));
    EXPECT_EQ(
        result("pack", {Value::row<float>({1, std::nanf("")}), "double", 1, 0, none}).describe(),
        values.describe());
}

TEST_F(Pack, KeepsWholeNumbersOfSixtyFourBits)
{
    const Value none = Value::empty();
    const Value values = Value::scalar<std::int64_t>(9007199254740993);
    EXPECT_EQ(result("pack", {values, "uint64", 1, 0, none}),
              Value::scalar<std::uint64_t>(9007199254740993));
}

TEST_F(Pack, NamesTheFirstValueThatDoesNotFit)
{
    const Value none = Value::empty();
    EXPECT_THAT(attemptDataset("pack", {Value::row<double>({1, 4000, 1e9}), "short", 0.1, 0, -99}),
                raisesInDatasets("valueOutOfRange", {2L, "4000", "short", "-3276.8 to 3276.7"}));
    EXPECT_THAT(attemptDataset("pack", {gap, "byte", 1, 0, none}),
                raisesInDatasets("valueOutOfRange", {1L, "NaN", "byte", "-128 to 127"}));
    EXPECT_THAT(attemptDataset("pack", {Value::scalar<std::int32_t>(-1), "ubyte", 1, 0, none}),
                raisesInDatasets("valueOutOfRange", {1L, "-1", "ubyte", "0 to 255"}));
    EXPECT_FALSE(attemptDataset("pack", {1e300, "float", 1, 0, none}).succeeded());
    EXPECT_FALSE(attemptDataset("pack", {std::numeric_limits<double>::infinity(), "int", 1, 0, 0})
                     .succeeded());
}

TEST_F(Pack, RefusesArgumentsThatDoNotFit)
{
    const Value none = Value::empty();
    EXPECT_THAT(
        attemptDataset("pack", {1, "char", 1, 0, none}),
        raisesInDatasets("badArgument", {"type", "that of numbers, such as short or float"}));
    EXPECT_THAT(attemptDataset("pack", {1, "short", 0, 0, none}),
                raisesInDatasets("badArgument", {"scale", "a number other than 0"}));
    for (const Value& fill : {Value(1.5), Value(40000), Value("a"), row({1, 2}), Value(gap)})
        EXPECT_THAT(
            attemptDataset("pack", {1, "short", 1, 0, fill}),
            raisesInDatasets("badArgument", {"fill", "one number of type short, or empty"}));
    EXPECT_THAT(
        attemptDataset("pack", {"text", "short", 1, 0, none}),
        raisesInDatasets("badArgument", {"values", "numbers, in an array of any numeric class"}));
}
