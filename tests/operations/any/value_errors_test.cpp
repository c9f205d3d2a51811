// SPDX-License-Identifier: BSD-3-Clause
// Values that a type does not take: each is refused with its place, and nothing is written.
#include "tests/operations/operation_test.h"

#include <netcdf.h>

#include <cstring>

using namespace testsupport;

namespace {

using standalone::Argument;

// A variable (x: 2) of the compound type "cast": field "station" string, field "sky" an enumeration
// of bytes, field "depth" float (2), field "levels" a vlen of shorts, field "key" 2 opaque bytes.
class ValueErrors : public OperationTest {
protected:
    void SetUp() override
    {
        ncid = createFile("v.nc", NC_NETCDF4);
        any("defEnum", {ncid, "byte", "sky"});
        any("insertEnum", {ncid, "sky", "clear", 0});
        any("insertEnum", {ncid, "sky", "cloudy", 3});
        any("defVlen", {ncid, "levels", "short"});
        any("defOpaque", {ncid, 2, "key"});
        any("defCompound", {ncid, 48, "cast"});
        any("insertCompound", {ncid, "cast", "station", 0, "string"});
        any("insertCompound", {ncid, "cast", "sky", 8, "sky"});
        any("insertArrayCompound", {ncid, "cast", "depth", 12, "float", 2});
        any("insertCompound", {ncid, "cast", "levels", 24, "levels"});
        any("insertCompound", {ncid, "cast", "key", 40, "key"});
        const Value cast = host.callAny("inqTypeID", {ncid, "cast"}).at(0);
        number("defDim", {ncid, "x", 2});
        varid = id("defVar", {ncid, "v", cast, 0});
        any("putVar", {ncid, varid, good()});
    }
    void TearDown() override
    {
        // Whatever was refused, the file holds what it held.
        const Value read = host.callAny("getVar", {ncid, varid}).at(0);
        EXPECT_EQ(read.field("station").cells(), (Values{"Oslo", "Rome"}));
        EXPECT_EQ(read.field("sky"), Value::column<std::int8_t>({3, 0}));
        closeFile(ncid);
    }

    void any(const std::string& operation, const Values& arguments)
    {
        host.callAny(operation, arguments);
    }

    static Value good()
    {
        return Value::structure(
            {{"station", Value::cell({2, 1}, {"Oslo", "Rome"})},
             {"sky", Value::cell({2, 1}, {"cloudy", "clear"})},
             {"depth", Value::numeric<double>({2, 2}, {1, 2, 3, 4})},
             {"levels", Value::cell({2, 1}, {Value::column<double>({1, 2}), Value::empty()})},
             {"key", Value::numeric<std::uint8_t>({2, 2}, {1, 2, 3, 4})}});
    }

    // The good values with another one in one field.
    static Value with(const std::string& field, const Value& other)
    {
        const Value values = good();
        std::vector<std::pair<std::string, Value>> fields;
        for (const std::string& name : values.fieldNames())
            fields.emplace_back(name, name == field ? other : values.field(name));
        return Value::structure(fields);
    }

    void expectRefusal(const Value& values, const std::string& name,
                       const std::vector<Argument>& arguments)
    {
        SCOPED_TRACE(values.describe());
        EXPECT_THAT(host.attemptAny("putVar", {ncid, varid, values}),
                    RaisesMatcher("Ovard:gridio:any:" + name, arguments));
    }

    int ncid = 0;
    int varid = 0;
};

TEST_F(ValueErrors, NameTheFieldOfAnotherClass)
{
    expectRefusal(1, "badValueClass",
                  {"the values", "one structure, whose fields hold the values"});
    expectRefusal(with("station", 1), "badValueClass",
                  {"field 1 'station'", "text: a char row, or a cell array of char rows"});
    expectRefusal(with("depth", "ab"), "badValueClass",
                  {"field 3 'depth'", "real numbers: a numeric or logical array"});
    expectRefusal(with("levels", Value::row<double>({1, 2})), "badValueClass",
                  {"field 4 'levels'", "a cell array with the elements of one value in each cell"});
    expectRefusal(
        with("key", Value::row<double>({1, 2, 3, 4})), "badValueClass",
        {"field 5 'key'", "bytes: a uint8 array, the bytes of each value one after the other"});
}

TEST_F(ValueErrors, NameTheElement)
{
    expectRefusal(with("station", Value::cell({2, 1}, {"Oslo", 7})), "badValueClass",
                  {"field 1 'station', element 2", "text: a char row"});
    expectRefusal(with("depth", Value::numeric<double>({2, 2}, {1, 2, 0.1, 4})), "valueDoesNotFit",
                  {"field 3 'depth', element 3", "0.1", "float"});
    expectRefusal(with("levels", Value::cell({2, 1}, {Value::row<double>({1, 40000}), 1})),
                  "valueDoesNotFit", {"field 4 'levels', element 1, element 2", "40000", "short"});
    expectRefusal(with("levels", Value::cell({2, 1}, {1, "ab"})), "badValueClass",
                  {"field 4 'levels', element 2", "real numbers: a numeric or logical array"});
}

TEST_F(ValueErrors, ListTheMembersOfAnEnumeration)
{
    expectRefusal(with("sky", Value::cell({1, 2}, {"clear", "foggy"})), "unknownLabel",
                  {"field 2 'sky', element 2", "foggy", "sky", "clear, cloudy"});
    expectRefusal(with("sky", Value::row<std::int8_t>({3, 7})), "unknownLabel",
                  {"field 2 'sky', element 2", "7", "sky", "clear, cloudy"});
    expectRefusal(with("sky", Value::row<double>({-1, 3})), "unknownLabel",
                  {"field 2 'sky', element 1", "-1", "sky", "clear, cloudy"});
}

TEST_F(ValueErrors, CountTheValuesThatAreNeeded)
{
    expectRefusal(with("station", "Oslo"), "wrongNumberOfValues", {"field 1 'station'", 2L, 1L});
    expectRefusal(with("depth", Value::row<double>({1, 2, 3})), "wrongNumberOfValues",
                  {"field 3 'depth'", 4L, 3L});
    expectRefusal(with("key", Value::empty(vxUINT8_CLASS)), "wrongNumberOfValues",
                  {"field 5 'key'", 4L, 0L});
}

TEST_F(ValueErrors, NameFieldsThatAreMissingAndSurplus)
{
    expectRefusal(Value::structure({{"station", Value::cell({2, 1}, {"a", "b"})}}), "missingField",
                  {"the values", "sky", "cast"});
    std::vector<std::pair<std::string, Value>> fields;
    const Value whole = good();
    for (const std::string& name : whole.fieldNames())
        fields.emplace_back(name, whole.field(name));
    fields.emplace_back("Depth", 1);
    expectRefusal(Value::structure(fields), "surplusField", {"the values", "Depth", "cast"});
}

TEST_F(ValueErrors, RefuseANulInAString)
{
    expectRefusal(with("station",
                       Value::cell({2, 1}, {"Oslo", Value::text(std::u16string_view(u"a\0b", 3))})),
                  "textHoldsNul", {"field 1 'station', element 2"});
}

} // namespace
