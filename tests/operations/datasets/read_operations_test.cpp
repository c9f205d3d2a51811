// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::HasSubstr;

using standalone::Value;

namespace {

const double gap = std::numeric_limits<double>::quiet_NaN();

class Decoding : public testsupport::DatasetTest {
protected:
    // A file with one variable v(x), by its type, attributes and values.
    int openColumn(const std::string& type, const std::string& attributes,
                   const std::string& values, const std::string& kind = "nc4")
    {
        return openMade("dimensions: x = 4; variables: " + type + " v(x); " + attributes +
                            " data: v = " + values + ";",
                        kind);
    }

    Value readColumn(int ncid, unsigned flags = 31)
    {
        return result("read", {ncid, 0, 0, 4, 1, flags});
    }
    Value decoding(int ncid, unsigned flags = 31) { return result("decoding", {ncid, 0, flags}); }
};

// What is read of a column, flags being the usual ones, and the class that is said beforehand.
struct Case {
    const char* type;
    const char* attributes;
    const char* values;
    Value expected;
};

Value doubles(std::vector<double> values) { return Value::column(values); }
Value singles(std::vector<float> values) { return Value::column(values); }

const float gapSingle = std::numeric_limits<float>::quiet_NaN();

std::vector<Case> cases()
{
    return {
        {"short", "", "1, 2, 3, 4", Value::column<std::int16_t>({1, 2, 3, 4})},
        {"short", "v:scale_factor = 0.5; v:add_offset = 1.;", "1, 2, 3, -4",
         doubles({1.5, 2, 2.5, -1})},
        {"short", "v:scale_factor = 0.5;", "1, 2, 3, _", doubles({0.5, 1, 1.5, gap})},
        {"short", "v:_FillValue = 2s;", "1, 2, 3, -32767", doubles({1, gap, 3, -32767})},
        {"short", "v:missing_value = 2, 3;", "1, 2, 3, 4", doubles({1, gap, gap, 4})},
        {"short", "v:missing_value = 2.f;", "1, 2, 3, 4", doubles({1, gap, 3, 4})},
        {"short", "v:valid_range = 2s, 3s;", "1, 2, 3, 4", doubles({gap, 2, 3, gap})},
        {"short", "v:valid_min = 2s;", "1, 2, 3, 4", doubles({gap, 2, 3, 4})},
        {"short", "v:valid_max = 2.5;", "1, 2, 3, 4", doubles({1, 2, gap, gap})},
        {"byte", "v:_Unsigned = \"true\";", "-1, -2, 3, 4",
         Value::column<std::uint8_t>({255, 254, 3, 4})},
        {"byte", "v:_Unsigned = \"true\"; v:_FillValue = -1b; v:valid_max = 200s;",
         "-1, -2, 100, 4", doubles({gap, gap, 100, 4})},
        {"byte", "", "-127, 2, 3, 4", Value::column<std::int8_t>({-127, 2, 3, 4})},
        {"ubyte", "v:scale_factor = 2;", "255, 2, 3, 4", doubles({510, 4, 6, 8})},
        {"int64", "", "9007199254740993, 2, 3, 4",
         Value::column<std::int64_t>({9007199254740993, 2, 3, 4})},
        {"float", "v:missing_value = 1.e20;", "1, 1.e20f, 3, _",
         singles({1, gapSingle, 3, gapSingle})},
        {"float", "v:scale_factor = 2.f;", "1, 2, 3, 4", doubles({2, 4, 6, 8})},
        {"double", "v:valid_range = 2, 3;", "1, 2, 3, NaN", doubles({gap, 2, 3, gap})},
        {"double", "v:_FillValue = NaN;", "1, 2, 9.969209968386869e36, NaN",
         doubles({1, 2, 9.969209968386869e36, gap})},
        {"uint", "v:_FillValue = 4294967295;", "1, 2, 3, 4294967295", doubles({1, 2, 3, gap})},
    };
}

} // namespace

TEST_F(Decoding, ReturnsTheClassAndValuesOfEachRule)
{
    for (const Case& one : cases()) {
        SCOPED_TRACE(std::string(one.type) + " " + one.attributes);
        const int ncid = openColumn(one.type, one.attributes, one.values);
        const Value read = readColumn(ncid);
        EXPECT_EQ(read.classId(), one.expected.classId());
        EXPECT_EQ(read.describe(), one.expected.describe());
        const Value said = this->decoding(ncid);
        EXPECT_EQ(said.field("class").toText(), standalone::classWord(one.expected.classId()));
        EXPECT_EQ(said.field("warnings").numel(), 0u);
        closeFile(ncid);
    }
}

TEST_F(Decoding, GivesPlainIntegersWithUnwrittenValuesAsDoubles)
{
    const int ncid = openColumn("int", "", "1, _, 3, 4");
    EXPECT_EQ(decoding(ncid).field("class").toText(), "int32");
    EXPECT_EQ(readColumn(ncid).describe(), doubles({1, gap, 3, 4}).describe());
    EXPECT_EQ(result("read", {ncid, 0, 2, 2, 1, 31}), Value::column<std::int32_t>({3, 4}));
    EXPECT_EQ(readColumn(ncid, 29), Value::column<std::int32_t>({1, -2147483647, 3, 4}));
    EXPECT_EQ(readColumn(ncid, 63).describe(), singles({1, gapSingle, 3, 4}).describe());
}

TEST_F(Decoding, LeavesOutWhatItsFlagDoesNotAskFor)
{
    const int ncid = openColumn(
        "byte",
        "v:_Unsigned = \"true\"; v:scale_factor = 0.5; v:_FillValue = 1b; v:valid_max = 3b;",
        "1, 2, -1, 3");
    EXPECT_EQ(readColumn(ncid, 0), Value::column<std::int8_t>({1, 2, -1, 3}));
    EXPECT_EQ(readColumn(ncid, 8), Value::column<std::uint8_t>({1, 2, 255, 3}));
    EXPECT_EQ(readColumn(ncid, 1).describe(), doubles({gap, 2, -1, 3}).describe());
    EXPECT_EQ(readColumn(ncid, 4).describe(), doubles({1, 2, -1, 3}).describe());
    EXPECT_EQ(readColumn(ncid, 12).describe(), doubles({1, 2, gap, 3}).describe());
    EXPECT_EQ(readColumn(ncid, 16).describe(), doubles({0.5, 1, -0.5, 1.5}).describe());
    EXPECT_EQ(readColumn(ncid, 63).describe(), singles({gapSingle, 1, gapSingle, 1.5F}).describe());
}

TEST_F(Decoding, SaysWhatItIsDoneBy)
{
    const int ncid = openColumn("short",
                                "v:scale_factor = 0.5; v:add_offset = 1.; v:missing_value = -1s, "
                                "-2s; v:valid_min = 0s;",
                                "1, 2, 3, 4");
    const Value said = this->decoding(ncid);
    EXPECT_EQ(said.field("storedClass").toText(), "int16");
    EXPECT_TRUE(said.field("isPacked").toLogical());
    EXPECT_TRUE(said.field("hasMissing").toLogical());
    EXPECT_EQ(said.field("scale").toDouble(), 0.5);
    EXPECT_EQ(said.field("offset").toDouble(), 1);
    EXPECT_EQ(said.field("missing"), Value::row<std::int16_t>({-1, -2, -32767}));
    EXPECT_EQ(said.field("fill"), Value::scalar<std::int16_t>(-1));
    EXPECT_EQ(said.field("validMin"), Value::scalar<std::int16_t>(0));
    EXPECT_EQ(said.field("validMax"), Value::empty(vxINT16_CLASS));
}

// Each is ignored, with a warning that names it.
TEST_F(Decoding, PassesOverBrokenAttributes)
{
    const std::pair<const char*, const char*> broken[] = {
        {"scale_factor", "v:scale_factor = \"0.5\";"},
        {"scale_factor", "v:scale_factor = 1., 2.;"},
        {"add_offset", "v:add_offset = NaN;"},
        {"add_offset", "string v:add_offset = \"a\", \"b\";"},
        {"missing_value", "v:missing_value = \"-1\";"},
        {"missing_value", "v:missing_value = 1.e20;"},
        {"valid_range", "v:valid_range = 1s;"},
        {"valid_range", "v:valid_range = 3s, 1s;"},
        {"valid_range", "v:valid_range = \"ab\";"},
        {"valid_range", "v:valid_range = NaN, 3.;"},
        {"valid_min", "v:valid_min = 40000;"},
        {"valid_max", "v:valid_max = 1s, 2s, 3s;"},
        {"_Unsigned", "v:_Unsigned = \"maybe\";"},
        {"_Unsigned", "v:_Unsigned = 1;"},
    };
    for (const auto& [name, attributes] : broken) {
        SCOPED_TRACE(attributes);
        const int ncid = openColumn("short", attributes, "1, 2, 3, 4");
        EXPECT_THAT(texts(decoding(ncid).field("warnings")),
                    ElementsAre(HasSubstr("variable \"v\": the attribute " + std::string(name))));
        EXPECT_EQ(readColumn(ncid), Value::column<std::int16_t>({1, 2, 3, 4}));
        closeFile(ncid);
    }
}

TEST_F(Decoding, TakesARangeInUnpackedUnitsForBroken)
{
    const int ncid =
        openColumn("short", "v:scale_factor = 0.5; v:valid_range = 0.5f, 1.f;", "1, 2, 3, 4");
    EXPECT_THAT(texts(decoding(ncid).field("warnings")), ElementsAre(HasSubstr("valid_range")));
    EXPECT_EQ(readColumn(ncid), doubles({0.5, 1, 1.5, 2}));
}

TEST_F(Decoding, ReadsBlocksInTheOrderOfTheArray)
{
    const int ncid = openMade("dimensions: y = 2; x = 3; variables: short v(y, x); v:scale_factor "
                              "= 2.; data: v = 1, 2, 3, 4, 5, 6;");
    EXPECT_EQ(result("read", {ncid, 0, row({0, 0}), row({2, 2}), row({2, 1}), 31}),
              Value::numeric<double>({2, 2}, {2, 6, 8, 12}));
    EXPECT_EQ(result("read", {ncid, 0, row({0, 0}), row({0, 2}), row({1, 1}), 31}).dims(),
              (Dims{0, 2}));
}

TEST_F(Decoding, ReadsAVariableWithoutDimensions)
{
    const int ncid = openMade("variables: short v; v:scale_factor = 2.; data: v = 3;");
    const Value none = Value::empty();
    EXPECT_EQ(result("read", {ncid, 0, none, none, none, 31}), Value::number(6));
    EXPECT_EQ(result("read", {ncid, 0, none, none, none, 0}), Value::scalar<std::int16_t>(3));
}

TEST_F(Decoding, ReadsOtherTypesAsTheSecondTableDoes)
{
    const int ncid = openMade(R"(types: byte enum sky {clear = 0, cloudy = 1}; int(*) list;
        opaque(3) blob; compound pair {int a; float b;};
        dimensions: x = 2; n = 3;
        variables: char c(x, n); string s(x); sky q(x); list l(x); blob o(x); pair p(x);
        data: c = "abc", "de"; s = "a", "bc"; q = clear, cloudy; l = {1, 2}, {3};
        o = 0X010203, 0X040506; p = {1, 2}, {3, 4};)");
    const char* const classes[] = {"char", "cell", "int8", "cell", "uint8", "struct"};
    for (int varid = 0; varid < 6; ++varid) {
        SCOPED_TRACE(varid);
        const auto all = [&](double one) { return varid == 0 ? row({one, one}) : row({one}); };
        const Value count = varid == 0 ? row({3, 2}) : row({2});
        const Value expected = host.callAny("getVars", {ncid, varid, all(0), count, all(1)}).at(0);
        EXPECT_EQ(result("read", {ncid, varid, all(0), count, all(1), 31}), expected);
        EXPECT_EQ(result("decoding", {ncid, varid, 31}).field("class").toText(), classes[varid]);
    }
}

TEST_F(Decoding, RefusesBadArguments)
{
    const int ncid = openColumn("short", "", "1, 2, 3, 4");
    EXPECT_THAT(
        attemptDataset("read", {ncid, 0, 0, 4, 1, 64}),
        testsupport::raisesInDatasets("badArgument", {"flags", "a sum of 1, 2, 4, 8, 16 and 32"}));
    EXPECT_THAT(attemptDataset("read", {ncid, 0, row({0, 0}), 4, 1, 31}),
                testsupport::raises("badIndexArgumentLength", {"START", "v", 1L, 2L}));
    EXPECT_THAT(attemptDataset("read", {ncid, -1, 0, 4, 1, 31}), failsWith("read", NC_ENOTVAR));
    EXPECT_THAT(attemptDataset("read", {ncid, 0, 0, 5, 1, 31}), failsWith("read", NC_EEDGE));
    EXPECT_THAT(attemptDataset("decoding", {ncid, 0}), testsupport::raises("wrongNumberOfInputs"));
    EXPECT_THAT(attemptDataset("undo", {}), testsupport::raises("unrecognizedOperation", {"undo"}));
}
