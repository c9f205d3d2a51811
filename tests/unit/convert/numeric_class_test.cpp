// SPDX-License-Identifier: BSD-3-Clause
#include "convert/numeric_class.h"

#include "hosts/standalone/value.h"

#include <gtest/gtest.h>

#include <type_traits>
#include <vector>

namespace Ovard::gridio {
namespace {

using standalone::Value;

template <class T> void expectVisitedAs()
{
    const Value array = Value::row<T>({T{11}, T{22}, T{33}});
    int visits = 0;
    const bool isNumeric = visitNumericElements(array.array(), [&](const auto* elements) {
        constexpr bool sameType = std::is_same_v<decltype(elements), const T*>;
        EXPECT_TRUE(sameType) << array;
        EXPECT_EQ(static_cast<T>(elements[2]), T{33}) << array;
        ++visits;
    });
    EXPECT_TRUE(isNumeric) << array;
    EXPECT_EQ(visits, 1) << array;
}

TEST(VisitNumericElements, GivesEachOfTheTenClassesItsElementType)
{
    expectVisitedAs<double>();
    expectVisitedAs<float>();
    expectVisitedAs<std::int8_t>();
    expectVisitedAs<std::uint8_t>();
    expectVisitedAs<std::int16_t>();
    expectVisitedAs<std::uint16_t>();
    expectVisitedAs<std::int32_t>();
    expectVisitedAs<std::uint32_t>();
    expectVisitedAs<std::int64_t>();
    expectVisitedAs<std::uint64_t>();
}

TEST(VisitNumericElements, RefusesEveryOtherClassWithoutACall)
{
    const Value others[] = {Value("text"), Value(true), Value::cell({1, 1}, {1}),
                            Value::anythingElse()};
    for (const Value& other : others) {
        int visits = 0;
        EXPECT_FALSE(visitNumericElements(other.array(), [&](const auto*) { ++visits; })) << other;
        EXPECT_EQ(visits, 0) << other;
    }
}

} // namespace
} // namespace Ovard::gridio
