// SPDX-License-Identifier: BSD-3-Clause
#include "convert/result_builders.h"

#include "hosts/standalone/host.h"

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

namespace Ovard::gridio {
namespace {

using standalone::Dims;
using standalone::Value;
using testing::ElementsAre;

TEST(IntResult, IsADoubleScalarThatHoldsTheNumberExactly)
{
    for (const int v : {0, 1, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()})
        EXPECT_EQ(Value::adopt(intResult(v)), Value::number(v));
    EXPECT_EQ(Value::adopt(intResult(-2147483647 - 1)).toDouble(), -2147483648.0);
}

TEST(SizeResult, IsADoubleScalarRoundedFromTheUnsignedNumber)
{
    const struct {
        std::size_t value;
        double expected;
    } cases[] = {
        {0, 0.0},
        {1, 1.0},
        {9007199254740992U, 9007199254740992.0},
        {9007199254740993U, 9007199254740992.0}, // ties to even
        {9007199254740995U, 9007199254740996.0},
        {9223372036854775807U, 9223372036854775808.0},
        {9223372036854775808U, 9223372036854775808.0}, // not negative
        {9223372036854777857U, 9223372036854777856.0},
        {18446744073709551615U, 18446744073709551616.0},
    };
    for (const auto& c : cases)
        EXPECT_EQ(Value::adopt(sizeResult(c.value)), Value::number(c.expected)) << c.value;
}

TEST(IdVectorToRow, IsZeroByZeroAndNotOneByZeroWhenThereAreNone)
{
    const Value row = Value::adopt(idVectorToRow({}));
    EXPECT_EQ(row.classId(), vxDOUBLE_CLASS);
    EXPECT_THAT(row.dims(), ElementsAre(0, 0));
}

TEST(IdVectorToRow, KeepsTheOrderOfTheIdentifiers)
{
    EXPECT_EQ(Value::adopt(idVectorToRow({7})), Value::row<double>({7}));
    const Value five = Value::adopt(idVectorToRow({3, -1, 2147483647, 0, 65537}));
    EXPECT_THAT(five.dims(), ElementsAre(1, 5));
    EXPECT_THAT(five.elements<double>(), ElementsAre(3, -1, 2147483647.0, 0, 65537));
}

TEST(IdVectorToRow, LeavesNoElementUnset)
{
    standalone::Host host;
    host.fillUninitialised(0xA5);
    EXPECT_THAT(Value::adopt(idVectorToRow({1, 2, 3})).elements<double>(), ElementsAre(1, 2, 3));
}

TEST(TextResult, IsACharRow)
{
    EXPECT_EQ(Value::adopt(textResult("abc")), Value::text(Dims{1, 3}, u"abc"));
    EXPECT_EQ(Value::adopt(textResult("\xCE\xB1")), Value::text(Dims{1, 1}, u"\u03B1"));
    EXPECT_EQ(Value::adopt(textResult("")), Value::text(Dims{1, 0}, u""));
}

TEST(FlagResult, IsALogicalScalar)
{
    EXPECT_EQ(Value::adopt(flagResult(true)), Value::logical(true));
    EXPECT_EQ(Value::adopt(flagResult(false)), Value::logical(false));
}

} // namespace
} // namespace Ovard::gridio
