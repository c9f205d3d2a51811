// SPDX-License-Identifier: BSD-3-Clause
// Text, flags, raw reads and data; the numeric readers are in numeric_readers_test.cpp.
#include "convert/argument_readers.h"

#include "tests/support/raised_matcher.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

using standalone::Value;
using testsupport::outcomeOf;
using testsupport::raises;
using testsupport::succeeds;

using namespace std::string_literals;

TEST(ReadText, GivesTheTextInTheNarrowEncoding)
{
    EXPECT_EQ(readText(Value("nc_write").array(), "file mode"), "nc_write");
    EXPECT_EQ(readText(Value::text(u"gr\u00F6\u00DFe").array(), "file"), "gr\xC3\xB6\xC3\x9F"
                                                                         "e");
    EXPECT_EQ(readText(Value::text(u"\u0394T").array(), "file"), "\xCE\x94T");
    EXPECT_EQ(readText(Value::text(u"\U0001F30D").array(), "file"), "\xF0\x9F\x8C\x8D");
}

TEST(ReadText, IgnoresTheShapeAndReadsInStorageOrder)
{
    EXPECT_EQ(readText(Value::text({2, 3}, u"adbecf").array(), "file"), "adbecf");
    EXPECT_EQ(readText(Value::text({3, 1}, u"abc").array(), "file"), "abc");
}

TEST(ReadText, TakesAnEmptyCharArrayOfAnyShapeForEmptyText)
{
    for (const standalone::Dims& dims : {standalone::Dims{0, 0}, {1, 0}, {0, 5}, {3, 0, 2}})
        EXPECT_EQ(readText(Value::empty(vxCHAR_CLASS, dims).array(), "file"), "");
}

TEST(ReadText, KeepsAZeroInTheMiddle)
{
    EXPECT_EQ(readText(Value::text(u"a\0b"s).array(), "file"), "a\0b"s);
}

TEST(ReadText, RaisesForEveryOtherClass)
{
    const Value others[] = {Value(1.0),
                            Value::empty(),
                            Value(true),
                            Value::scalar(1.0F),
                            Value::row<std::int16_t>({'a', 'b'}),
                            Value::row<std::uint8_t>({'a', 'b'}),
                            Value::cell({1, 1}, {"text"}),
                            Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_THAT(outcomeOf([&] { return readText(other.array(), "group name"); }),
                    raises("argumentWasNotChar", {"group name"}))
            << other;
}

TEST(ReadFlag, GivesTheValueOfALogicalScalar)
{
    EXPECT_TRUE(readFlag(Value(true).array(), "shuffle flag"));
    EXPECT_FALSE(readFlag(Value(false).array(), "shuffle flag"));
}

TEST(ReadFlag, TakesAnyStoredByteButZeroForTrue)
{
    for (const std::uint8_t byte : std::vector<std::uint8_t>{1, 2, 128, 255})
        EXPECT_TRUE(readFlag(Value::logicalBytes({1, 1}, {byte}).array(), "FILL FLAG"));
}

TEST(ReadFlag, RaisesForAnythingButALogicalScalarAlsoForTheNumbersZeroAndOne)
{
    const Value others[] = {Value(1.0),
                            Value(0.0),
                            Value::scalar<std::int8_t>(1),
                            Value::scalar<std::uint8_t>(0),
                            Value("t"),
                            Value::logical({1, 2}, {true, true}),
                            Value::empty(vxLOGICAL_CLASS),
                            Value::cell({1, 1}, {true}),
                            Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_THAT(outcomeOf([&] { return readFlag(other.array(), "include_parents flag"); }),
                    raises("expectedLogicalType", {"include_parents flag"}))
            << other;
}

TEST(ReadRawFloat, TakesTheFirstFourBytesOfAnyStorage)
{
    EXPECT_EQ(readRawFloat(Value::scalar(0.75F).array(), "preemption"), 0.75F);
    EXPECT_EQ(readRawFloat(Value::row<float>({0.25F, 9.0F}).array(), "preemption"), 0.25F);
    EXPECT_EQ(readRawFloat(Value::row<std::uint8_t>({0, 0, 0x40, 0x3F, 9}).array(), "preemption"),
              0.75F);
    EXPECT_EQ(readRawFloat(Value::row<std::int16_t>({0, 0x3F40}).array(), "preemption"), 0.75F);
    EXPECT_EQ(readRawFloat(Value::text(u"\u0000\u3F40"s).array(), "preemption"), 0.75F);
    EXPECT_EQ(readRawFloat(Value::logicalBytes({1, 4}, {0, 0, 0x40, 0x3F}).array(), "preemption"),
              0.75F);
}

TEST(ReadRawFloat, DeliberatelyDoesNotConvertADouble)
{
    EXPECT_EQ(readRawFloat(Value(0.75).array(), "preemption"), 0.0F); // the low half is all zero
    double half = 0;
    const float inside = 0.3F;
    std::memcpy(&half, &inside, sizeof inside);
    EXPECT_EQ(readRawFloat(Value(half).array(), "preemption"), 0.3F);
}

TEST(ReadRawFloat, RaisesWhenThereAreNotFourBytes)
{
    const Value others[] = {
        Value::empty(vxSINGLE_CLASS),      Value::empty(),       Value::row<std::int8_t>({1, 2, 3}),
        Value::scalar<std::int16_t>(1),    Value("x"),           Value(true),
        Value::cell({2, 2}, {1, 2, 3, 4}), Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_THAT(outcomeOf([&] { return readRawFloat(other.array(), "preemption"); }),
                    raises("badScalarArgument", {"preemption", "numeric"}))
            << other;
}

TEST(CharDataToString, KeepsTheLowByteOfEachUnit)
{
    EXPECT_EQ(charDataToString(Value::text(u"\u0141").array()), "A"); // 321 is 256 and 65
    EXPECT_EQ(charDataToString(Value::text(u"\u0100\u01FF\uFFFF\u0000"s).array()),
              "\x00\xFF\xFF\x00"s);
}

TEST(CharDataToString, GivesEachOfThe256BytesItself)
{
    std::u16string units;
    std::string bytes;
    for (int code = 0; code < 256; ++code) {
        units += static_cast<char16_t>(code);
        bytes += static_cast<char>(code);
    }
    EXPECT_EQ(charDataToString(Value::text(units).array()), bytes);
}

TEST(CharDataToString, DeliberatelyUnlikeReadTextConvertsNoEncoding)
{
    const Value text = Value::text(u"\u00E9");
    EXPECT_EQ(charDataToString(text.array()), "\xE9");
    EXPECT_EQ(readText(text.array(), "name"), "\xC3\xA9");
}

TEST(CharDataToString, TakesOtherStorageAsUnitsWhateverItsClass)
{
    EXPECT_EQ(charDataToString(Value::row<std::uint16_t>({0x141, 0x42}).array()), "AB");
    EXPECT_EQ(charDataToString(Value::row<std::int32_t>({0x420041, 0x7F}).array()), "AB");
    EXPECT_EQ(charDataToString(Value::text({2, 2}, u"acbd").array()), "acbd");
    EXPECT_EQ(charDataToString(Value::empty().array()), "");
    EXPECT_EQ(charDataToString(Value::empty(vxINT8_CLASS).array()), "");
}

TEST(CharDataToString, RaisesWhenThereAreNotTwoBytesForEachElement)
{
    const Value others[] = {Value::row<std::int8_t>({65, 66}), Value::scalar<std::uint8_t>(65),
                            Value(true), Value::cell({1, 1}, {"text"}), Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_THAT(outcomeOf([&] { return charDataToString(other.array()); }),
                    raises("dataSizeMismatch"))
            << other;
}

TEST(RequireStorage, ComparesBytesAndNotElements)
{
    const Value eightBytes[] = {Value(1), Value::row<float>({1, 2}), Value("four"),
                                Value::row<std::int8_t>({1, 2, 3, 4, 5, 6, 7, 8})};
    for (const Value& data : eightBytes) {
        for (const std::size_t size : {1U, 2U, 4U, 8U}) {
            EXPECT_NO_THROW(requireStorage(data.array(), 8 / size, size)) << data;
            EXPECT_THAT(outcomeOf([&] { requireStorage(data.array(), 8 / size + 1, size); }),
                        raises("dataSizeMismatch"))
                << data << ' ' << size;
        }
    }
}

TEST(RequireStorage, DetectsAProductThatOverflows)
{
    const Value data = Value(1);
    EXPECT_THAT(outcomeOf([&] {
                    requireStorage(data.array(), std::size_t{1} << 61, 8); // 2^64 bytes
                }),
                raises("dataSizeMismatch"));
}

TEST(RequireStorage, FindsNoBytesInACellOrAnythingElse)
{
    for (const Value& other : {Value::cell({1, 2}, {1, 2}), Value::anythingElse()}) {
        EXPECT_NO_THROW(requireStorage(other.array(), 0, 1));
        EXPECT_THAT(outcomeOf([&] { requireStorage(other.array(), 1, 1); }),
                    raises("dataSizeMismatch"));
    }
}

} // namespace
} // namespace Ovard::gridio
