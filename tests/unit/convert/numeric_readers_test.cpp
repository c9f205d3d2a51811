// SPDX-License-Identifier: BSD-3-Clause
// The ten typed scalar readers of argument_readers.h, from each of the ten numeric classes.
#include "convert/argument_readers.h"

#include "tests/support/raised_matcher.h"

#include <boost/numeric/conversion/cast.hpp>
#include <gtest/gtest.h>

#include <cfloat>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

namespace Ovard::gridio {
namespace {

using standalone::Value;
using testsupport::outcomeOf;
using testsupport::raises;

__extension__ typedef __int128 Wide; // holds every element of every integer class

template <class T> using Reader = T (*)(const vxArray*, std::string_view);

constexpr double doubleInf = std::numeric_limits<double>::infinity();
constexpr float singleInf = std::numeric_limits<float>::infinity();
constexpr double doubleNan = std::numeric_limits<double>::quiet_NaN();
constexpr float singleNan = std::numeric_limits<float>::quiet_NaN();

// The outcome of a reader: a value, or the kind of failure.
template <class T> struct Reading {
    std::optional<T> value;
    std::string failure;
};

template <class T>
Reading<T> readingOf(Reader<T> read, const Value& argument, const char* name = "ncid")
{
    try {
        return {read(argument.array(), name), ""};
    } catch (const boost::numeric::negative_overflow&) {
        return {{}, "negative overflow"};
    } catch (const boost::numeric::positive_overflow&) {
        return {{}, "positive overflow"};
    } catch (const boost::numeric::bad_numeric_cast&) {
        return {{}, "neither positive nor negative overflow"};
    } catch (const fnd::except::IMsgIDException& error) {
        return {{}, standalone::describe(error.messageId()).name()};
    }
}

template <class T> void expectValue(Reader<T> read, const Value& argument, T expected)
{
    const Reading<T> reading = readingOf(read, argument);
    ASSERT_TRUE(reading.value) << argument << ": " << reading.failure;
    EXPECT_EQ(*reading.value, expected) << argument;
}

template <class T>
void expectFailure(Reader<T> read, const Value& argument, const std::string& failure,
                   const char* name = "ncid")
{
    const Reading<T> reading = readingOf(read, argument, name);
    EXPECT_FALSE(reading.value) << argument << " gives " << +*reading.value;
    EXPECT_EQ(reading.failure, failure) << argument;
}

// visit(reader, a double fails at or below, a single fails at or below, both fail at or above)
template <class Visitor> void forEachIntegerReader(Visitor visit)
{
    // clang-format off
    visit(&readIntScalar,    -2147483649.0,          -2147483648.0F,          2147483648.0);
    visit(&readSizeScalar,   -1.0,                   -1.0F,                   18446744073709551616.0);
    visit(&readInt64Scalar,  -9223372036854775808.0, -9223372036854775808.0F, 9223372036854775808.0);
    visit(&readUintScalar,   -1.0,                   -1.0F,                   4294967296.0);
    visit(&readUshortScalar, -1.0,                   -1.0F,                   65536.0);
    visit(&readShortScalar,  -32769.0,               -32769.0F,               32768.0);
    visit(&readUcharScalar,  -1.0,                   -1.0F,                   256.0);
    visit(&readScharScalar,  -129.0,                 -129.0F,                 128.0);
    // clang-format on
}

template <class Visitor> void forEachReader(Visitor visit)
{
    forEachIntegerReader([&](auto read, double, float, double) { visit(read); });
    visit(&readDoubleScalar);
    visit(&readFloatScalar);
}

template <class Visitor> void forEachIntegerClass(Visitor visit)
{
    visit(std::int8_t{});
    visit(std::uint8_t{});
    visit(std::int16_t{});
    visit(std::uint16_t{});
    visit(std::int32_t{});
    visit(std::uint32_t{});
    visit(std::int64_t{});
    visit(std::uint64_t{});
}

template <class S, class T> void expectFloatingBounds(Reader<T> read, S lower, S upper)
{
    const S inf = std::numeric_limits<S>::infinity();
    const S largest = std::numeric_limits<S>::max();
    const S zero = 0;
    for (const S value : {lower, std::nextafter(lower, -inf), lower * 2, -largest})
        expectFailure(read, Value::scalar(value), "negative overflow");
    for (const S value : {upper, std::nextafter(upper, inf), upper * 2, largest})
        expectFailure(read, Value::scalar(value), "positive overflow");

    const std::vector<S> candidates = {std::nextafter(lower, zero),
                                       std::nextafter(upper, zero),
                                       zero,
                                       -zero,
                                       S(0.5),
                                       S(-0.5),
                                       S(1),
                                       S(2.7),
                                       S(-2.7),
                                       S(100.7),
                                       S(-1.5),
                                       S(127.9),
                                       std::nextafter(S(1), zero),
                                       -std::nextafter(S(1), zero),
                                       S(1e-30),
                                       S(32767.5)};
    for (const S value : candidates) {
        if (value > lower && value < upper)
            expectValue(read, Value::scalar(value),
                        static_cast<T>(std::trunc(static_cast<long double>(value))));
    }
}

TEST(NumericReaders, TruncateADoubleTowardZeroWithinTheBoundsOfEachType)
{
    forEachIntegerReader([](auto read, double lower, float, double upper) {
        expectFloatingBounds<double>(read, lower, upper);
    });
}

TEST(NumericReaders, TruncateASingleTowardZeroWithinTheBoundsOfEachType)
{
    forEachIntegerReader([](auto read, double, float lower, double upper) {
        expectFloatingBounds<float>(read, lower, static_cast<float>(upper));
    });
}

template <class S, class T> void expectIntegersKept(Reader<T> read)
{
    using From = std::numeric_limits<S>;
    using To = std::numeric_limits<T>;
    std::set<Wide> candidates;
    for (const Wide bound : {Wide{From::min()}, Wide{From::max()}, Wide{To::min()}, Wide{To::max()},
                             Wide{0}, Wide{-5}, Wide{100}})
        candidates.insert({bound - 1, bound, bound + 1});
    for (const Wide candidate : candidates) {
        if (candidate < From::min() || candidate > From::max())
            continue;
        const Value argument = Value::scalar(static_cast<S>(candidate));
        if (candidate < To::min())
            expectFailure(read, argument, "negative overflow");
        else if (candidate > To::max())
            expectFailure(read, argument, "positive overflow");
        else
            expectValue(read, argument, static_cast<T>(candidate));
    }
}

TEST(NumericReaders, KeepAnIntegerOfEachClassExactlyWithinTheRangeOfEachIntegerType)
{
    forEachIntegerReader([](auto read, double, float, double) {
        forEachIntegerClass([&](auto element) { expectIntegersKept<decltype(element)>(read); });
    });
}

TEST(NumericReaders, RoundAnIntegerOfEachClassToNearestForDoubleAndFloat)
{
    forEachIntegerClass([](auto element) {
        using S = decltype(element);
        for (const S value :
             {std::numeric_limits<S>::min(), std::numeric_limits<S>::max(), S{0}, S{1}, S{100}}) {
            expectValue(&readDoubleScalar, Value::scalar(value), static_cast<double>(value));
            expectValue(&readFloatScalar, Value::scalar(value), static_cast<float>(value));
        }
    });
    const std::int64_t big = 9007199254740993; // 2^53 + 1
    expectValue(&readDoubleScalar, Value::scalar(big), 9007199254740992.0);
    expectValue(&readDoubleScalar, Value::scalar(big + 2), 9007199254740996.0);
    expectValue(&readDoubleScalar, Value::scalar(std::numeric_limits<std::uint64_t>::max()),
                18446744073709551616.0);
    expectValue(&readFloatScalar, Value::scalar(std::numeric_limits<std::uint64_t>::max()),
                18446744073709551616.0F);
    expectValue(&readFloatScalar, Value::scalar<std::int32_t>(16777217), 16777216.0F);
    expectValue(&readFloatScalar, Value::scalar<std::int32_t>(16777219), 16777220.0F);
    expectValue(&readFloatScalar, Value::scalar<std::int32_t>(-16777217), -16777216.0F);
}

TEST(NumericReaders, GiveADoubleAndASingleAsTheyAreForDouble)
{
    for (const double value : {0.1, -0.0, DBL_MAX, -DBL_MAX, DBL_TRUE_MIN, 9007199254740993.0}) {
        expectValue(&readDoubleScalar, Value::scalar(value), value);
    }
    EXPECT_TRUE(std::signbit(readDoubleScalar(Value(-0.0).array(), "x")));
    expectValue(&readDoubleScalar, Value::scalar(0.1F), 0.100000001490116119384765625);
    expectValue(&readDoubleScalar, Value::scalar(FLT_MAX), static_cast<double>(FLT_MAX));
}

TEST(NumericReaders, RoundADoubleToNearestForFloatWithinTheFiniteFloats)
{
    expectValue(&readFloatScalar, Value(0.1), 0.1F);
    expectValue(&readFloatScalar, Value(-2.7), -2.7F);
    expectValue(&readFloatScalar, Value(1e-60), 0.0F);
    expectValue(&readFloatScalar, Value(16777217.0), 16777216.0F);
    for (const double sign : {1.0, -1.0}) {
        const char* failure = sign > 0 ? "positive overflow" : "negative overflow";
        const double limit = sign * FLT_MAX;
        expectValue(&readFloatScalar, Value(limit), static_cast<float>(limit));
        expectValue(&readFloatScalar, Value(std::nextafter(limit, 0.0)), static_cast<float>(limit));
        // would round to the largest float, but is beyond it
        expectFailure(&readFloatScalar, Value(std::nextafter(limit, sign * doubleInf)), failure);
        expectFailure(&readFloatScalar, Value(sign * DBL_MAX), failure);
    }
}

TEST(NumericReaders, GiveASingleAsItIsForFloat)
{
    for (const float value : {0.1F, -2.7F, FLT_MAX, -FLT_MAX, FLT_TRUE_MIN})
        expectValue(&readFloatScalar, Value::scalar(value), value);
}

TEST(NumericReaders, RefuseNanAndInfinityUnderEveryNameButFillvalue)
{
    const Value notFinite[] = {Value(doubleNan),         Value(doubleInf),
                               Value(-doubleInf),        Value::scalar(singleNan),
                               Value::scalar(singleInf), Value::scalar(-singleInf)};
    forEachReader([&](auto read) {
        for (const Value& argument : notFinite) {
            for (const char* name : {"ncid", "varid", "", "fillvalue", "FILLVALUE ", "FILLVALU",
                                     "FILL VALUE", "_FILLVALUE"})
                EXPECT_THAT(outcomeOf([&] { return read(argument.array(), name); }),
                            raises("badScalarArgument", {name, "numeric"}))
                    << argument;
        }
    });
}

TEST(NumericReaders, LetNanAndInfinityThroughToDoubleUnderTheNameFillvalue)
{
    for (const Value& nan : {Value(doubleNan), Value::scalar(singleNan)})
        EXPECT_TRUE(std::isnan(readDoubleScalar(nan.array(), "FILLVALUE")));
    for (const Value& inf : {Value(doubleInf), Value::scalar(singleInf)})
        EXPECT_EQ(readDoubleScalar(inf.array(), "FILLVALUE"), doubleInf);
    for (const Value& inf : {Value(-doubleInf), Value::scalar(-singleInf)})
        EXPECT_EQ(readDoubleScalar(inf.array(), "FILLVALUE"), -doubleInf);
}

TEST(NumericReaders, LetBothNansAndTheSingleInfinityThroughToFloatButNotTheDoubleOne)
{
    EXPECT_TRUE(std::isnan(readFloatScalar(Value(doubleNan).array(), "FILLVALUE")));
    EXPECT_TRUE(std::isnan(readFloatScalar(Value::scalar(singleNan).array(), "FILLVALUE")));
    EXPECT_EQ(readFloatScalar(Value::scalar(singleInf).array(), "FILLVALUE"), singleInf);
    EXPECT_EQ(readFloatScalar(Value::scalar(-singleInf).array(), "FILLVALUE"), -singleInf);
    expectFailure(&readFloatScalar, Value(doubleInf), "positive overflow", "FILLVALUE");
    expectFailure(&readFloatScalar, Value(-doubleInf), "negative overflow", "FILLVALUE");
}

TEST(NumericReaders, FindNanAndInfinityOutOfRangeForEveryIntegerUnderTheNameFillvalue)
{
    forEachIntegerReader([](auto read, double, float, double) {
        for (const Value& nan : {Value(doubleNan), Value::scalar(singleNan)})
            expectFailure(read, nan, "neither positive nor negative overflow", "FILLVALUE");
        for (const Value& inf : {Value(doubleInf), Value::scalar(singleInf)})
            expectFailure(read, inf, "positive overflow", "FILLVALUE");
        for (const Value& inf : {Value(-doubleInf), Value::scalar(-singleInf)})
            expectFailure(read, inf, "negative overflow", "FILLVALUE");
    });
}

TEST(NumericReaders, RefuseWhatIsNotOneElementOfANumericClass)
{
    const Value others[] = {Value::empty(),
                            Value::empty(vxINT32_CLASS, {1, 0}),
                            Value::row<double>({1, 2}),
                            Value::column<double>({1, 2}),
                            Value::row<std::uint8_t>({1, 2, 3}),
                            Value::numeric<float>({1, 1, 2}, {1, 2}),
                            Value("1"),
                            Value(""),
                            Value(true),
                            Value::logical({1, 2}, {true, false}),
                            Value::cell({1, 1}, {1}),
                            Value::cell({0, 0}, {}),
                            Value::anythingElse()};
    forEachReader([&](auto read) {
        for (const Value& other : others) {
            for (const char* name : {"ncid", "FILLVALUE"})
                EXPECT_THAT(outcomeOf([&] { return read(other.array(), name); }),
                            raises("badScalarArgument", {name, "numeric"}))
                    << other;
        }
    });
}

TEST(NumericReaders, TakeOneElementOfAnyRank)
{
    const Value cube = Value::numeric<double>({1, 1, 1, 1}, {42});
    forEachReader([&](auto read) { EXPECT_EQ(read(cube.array(), "ncid"), 42); });
}

TEST(NumericReaders, ReadTheRealPartOfAComplexValue)
{
    const Value complex = Value::complex<double>({1, 1}, {42}, {doubleNan});
    forEachReader([&](auto read) { EXPECT_EQ(read(complex.array(), "ncid"), 42); });
}

TEST(ReadInt64Scalar, DeliberatelyRefusesItsLowestValueAsADoubleAndAsASingle)
{
    constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
    expectFailure(&readInt64Scalar, Value(-9223372036854775808.0), "negative overflow");
    expectFailure(&readInt64Scalar, Value::scalar(-9223372036854775808.0F), "negative overflow");
    expectValue<long>(&readInt64Scalar, Value::scalar(lowest), lowest);
}

TEST(ReadIntScalar, DeliberatelyRefusesItsLowestValueAsASingleButNotAsADouble)
{
    constexpr int lowest = std::numeric_limits<int>::min();
    expectFailure(&readIntScalar, Value::scalar(-2147483648.0F), "negative overflow");
    expectValue(&readIntScalar, Value(-2147483648.0), lowest);
}

TEST(ReadIntScalar, TruncatesTowardZeroUpToItsBounds)
{
    constexpr int highest = std::numeric_limits<int>::max();
    expectValue(&readIntScalar, Value(2.7), 2);
    expectValue(&readIntScalar, Value(-2.7), -2);
    expectValue(&readIntScalar, Value(2147483647.9), highest);
    expectFailure(&readIntScalar, Value(2147483648.0), "positive overflow");
    expectValue(&readIntScalar, Value(-2147483648.9), -highest - 1);
    expectFailure(&readIntScalar, Value(-2147483649.0), "negative overflow");
}

TEST(ReadIntScalar, ChecksTheRangeOfIntegers)
{
    expectFailure(&readIntScalar, Value::scalar<std::uint32_t>(2147483648), "positive overflow");
    expectValue(&readIntScalar, Value::scalar<std::int64_t>(-5), -5);
}

TEST(ReadSizeScalar, TakesMinusAHalfForZeroAndRefusesMinusOne)
{
    constexpr std::size_t highest = std::numeric_limits<std::size_t>::max();
    expectValue<std::size_t>(&readSizeScalar, Value(-0.5), 0);
    expectFailure(&readSizeScalar, Value(-1.0), "negative overflow");
    expectFailure(&readSizeScalar, Value::scalar<std::int8_t>(-1), "negative overflow");
    expectValue(&readSizeScalar, Value::scalar<std::uint64_t>(highest), highest);
}

} // namespace
} // namespace Ovard::gridio
