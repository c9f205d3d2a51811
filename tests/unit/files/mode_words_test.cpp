// SPDX-License-Identifier: BSD-3-Clause
#include "files/mode_words.h"

#include "tests/support/raised_matcher.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <limits>
#include <string>

namespace Ovard::gridio {
namespace {

using standalone::Value;
using testsupport::outcomeOf;
using testsupport::raises;

constexpr int lowestInt = std::numeric_limits<int>::min();

int modeOf(const Value& mode) { return readModeArgument(mode.array()); }

standalone::Outcome attempt(const Value& mode)
{
    return outcomeOf([&] { return modeOf(mode); });
}

TEST(ReadModeArgument, KnowsEightWordsEachAlsoWithThePrefixInAnyCase)
{
    const struct {
        const char* lower;
        const char* upper;
        const char* mixed;
        int value;
    } words[] = {
        {"clobber", "CLOBBER", "Clobber", 0},
        {"noclobber", "NOCLOBBER", "NoClobber", 4},
        {"share", "SHARE", "sHARE", 2048},
        {"write", "WRITE", "Write", 1},
        {"netcdf4", "NETCDF4", "netCDF4", 4096},
        {"64bit_offset", "64BIT_OFFSET", "64Bit_Offset", 512},
        {"classic_model", "CLASSIC_MODEL", "Classic_Model", 256},
        {"nowrite", "NOWRITE", "noWRITE", 0},
    };
    for (const auto& word : words) {
        for (const char* text : {word.lower, word.upper, word.mixed}) {
            EXPECT_EQ(modeOf(text), word.value) << text;
            for (const char* prefix : {"nc_", "NC_", "Nc_"})
                EXPECT_EQ(modeOf(std::string(prefix) + text), word.value) << prefix << text;
        }
    }
}

TEST(ReadModeArgument, ReadsAWordOfAnyShapeInStorageOrder)
{
    EXPECT_EQ(modeOf(Value::text({5, 1}, u"write")), 1);
    EXPECT_EQ(modeOf(Value::text({2, 4}, u"nc_write")), 1);
}

TEST(ReadModeArgument, TakesExactlyOneWordAndReportsAnyOtherInUpperCase)
{
    using namespace std::string_literals;
    const struct {
        Value text;
        std::string reported;
    } cases[] = {
        {"Foo_Bar", "FOO_BAR"},
        {"nc_write|nc_share", "NC_WRITE|NC_SHARE"},
        {"write|share", "WRITE|SHARE"},
        {"nc_write nc_share", "NC_WRITE NC_SHARE"},
        {"write,share", "WRITE,SHARE"},
        {" write", " WRITE"},
        {"write ", "WRITE "},
        {" ", " "},
        {"nc_", "NC_"},
        {"nc_nc_write", "NC_NC_WRITE"},
        {"nc-write", "NC-WRITE"},
        {"writ", "WRIT"},
        {"classic", "CLASSIC"},
        {"lock", "LOCK"},
        {"1", "1"},
        {Value::text(u"write\0"s), "WRITE\0"s}, // its length counts too
    };
    for (const auto& c : cases)
        EXPECT_THAT(attempt(c.text), raises("unrecognizedFileMode", {c.reported})) << c.text;
}

TEST(ReadModeArgument, TakesTheFirstElementOfAnInt32Unchanged)
{
    EXPECT_EQ(modeOf(Value::scalar<std::int32_t>(4352)), 0x1100);
    EXPECT_EQ(modeOf(Value::scalar<std::int32_t>(-1)), -1);
    EXPECT_EQ(modeOf(Value::scalar<std::int32_t>(lowestInt)), lowestInt);
    EXPECT_EQ(modeOf(Value::row<std::int32_t>({1, 4})), 1);
}

TEST(ReadModeArgument, TruncatesTheFirstElementOfADoubleTowardZero)
{
    EXPECT_EQ(modeOf(1.9), 1);
    EXPECT_EQ(modeOf(-0.5), 0);
    EXPECT_EQ(modeOf(-1.9), -1);
    EXPECT_EQ(modeOf(4352), 4352);
    EXPECT_EQ(modeOf(Value::row<double>({1, 4})), 1);
    EXPECT_EQ(modeOf(Value::column<double>({2049.5, 4})), 2049);
    EXPECT_EQ(modeOf(Value::complex<double>({1, 1}, {1}, {4})), 1);
}

TEST(ReadModeArgument, DeliberatelyTakesADoubleOutsideIntForTheLowestInt)
{
    for (const double mode :
         {2147483648.0, -2147483649.0, 4294967296.0, 1e300, -1e300,
          std::numeric_limits<double>::infinity(), -std::numeric_limits<double>::infinity(),
          std::numeric_limits<double>::quiet_NaN()})
        EXPECT_EQ(modeOf(mode), lowestInt) << mode;
    EXPECT_EQ(modeOf(2147483647.5), 2147483647);
}

TEST(ReadModeArgument, RaisesForAnEmptyArgumentOfAnyClassNamingItInUpperCase)
{
    for (const vxClassID classId : {vxCHAR_CLASS, vxDOUBLE_CLASS, vxINT32_CLASS, vxSINGLE_CLASS,
                                    vxLOGICAL_CLASS, vxCELL_CLASS, vxINT8_CLASS})
        EXPECT_THAT(attempt(Value::empty(classId)), raises("argumentIsEmptySet", {"MODE"}))
            << classId;
    EXPECT_THAT(attempt(""), raises("argumentIsEmptySet", {"MODE"}));
    EXPECT_THAT(attempt(Value::empty(vxCHAR_CLASS, {1, 0})),
                raises("argumentIsEmptySet", {"MODE"}));
    EXPECT_THAT(attempt(Value::anythingElse({0, 0})), raises("argumentIsEmptySet", {"MODE"}));
}

TEST(ReadModeArgument, RaisesForEveryOtherClass)
{
    const Value others[] = {Value::scalar(1.0F),
                            Value::scalar<std::int8_t>(1),
                            Value::scalar<std::uint8_t>(1),
                            Value::scalar<std::int16_t>(1),
                            Value::scalar<std::uint16_t>(1),
                            Value::scalar<std::uint32_t>(1),
                            Value::scalar<std::int64_t>(1),
                            Value::scalar<std::uint64_t>(1),
                            Value(true),
                            Value::cell({1, 1}, {"write"}),
                            Value::anythingElse()};
    for (const Value& other : others)
        EXPECT_THAT(attempt(other), raises("badModeDatatype")) << other;
}

} // namespace
} // namespace Ovard::gridio
