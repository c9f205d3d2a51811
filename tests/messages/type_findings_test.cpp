// SPDX-License-Identifier: BSD-3-Clause

#include "tests/messages/message_test.h"
#include "tests/support/library_leak.h"

#include <optional>

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr const char* everyType = R"(netcdf types {
types: byte enum cloud_t {CLEAR = 0, CLOUDY = 1}; int(*) row_t; compound pt_t { int a; }; opaque(3) raw_t;
dimensions: x = 2;
variables:
  string names(x); string names:who = "me", "you";
  cloud_t sky(x); row_t rows(x); pt_t points(x); raw_t raws(x); double numbers(x); numbers:limit = 1e9;
data: names = "a", "b"; numbers = 1, 1e9;
})";

class TypeFinding : public testsupport::MessageTest {
protected:
    int openTypes()
    {
        testsupport::ncgen(folder.file("types.nc"), everyType);
        return openFile("types.nc");
    }
};

TEST_F(TypeFinding, NamesATypeThatNoOperationReads)
{
    const int ncid = openTypes();
    const char* types[] = {"of type NC_STRING", "of the enum type \"cloud_t\"",
                           "of the variable-length type \"row_t\"", "of the compound type \"pt_t\"",
                           "of the opaque type \"raw_t\""};
    for (int varid = 0; varid < 5; ++varid) {
        // The library leaks the strings that it does not return.
        std::optional<testsupport::LeakOfTheLibrary> leak;
        if (varid == 0)
            leak.emplace();
        for (const char* operation : {"getVarDouble", "getVarText"})
            EXPECT_THAT(messageOf(operation, {ncid, varid}),
                        AllOf(HasSubstr(types[varid]),
                              HasSubstr("Use gridio_any (\"getVar\", ...), which reads")));
        EXPECT_THAT(messageOf("inqVarFill", {ncid, varid}), HasSubstr(types[varid]));
    }
    for (const char* operation : {"getAttText", "getAttInt"})
        EXPECT_THAT(messageOf(operation, {ncid, 0, "who"}),
                    AllOf(HasSubstr("The attribute \"who\" is of type NC_STRING"),
                          HasSubstr("Use gridio_any (\"getAtt\", ...), which reads")));
}

TEST_F(TypeFinding, NamesTheOperationForTheType)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("getVarDouble", {ncid, 2}),
                HasSubstr("The variable \"title\" holds text (NC_CHAR): use \"getVarText\"."));
    EXPECT_THAT(messageOf("getVaraText", {ncid, 3, row({0, 0}), row({1, 1})}),
                HasSubstr("The variable \"flag\" holds numbers (NC_BYTE): use \"getVaraSchar\"."));
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 2, row({1, 2, 3, 4})}),
                HasSubstr("use \"putVarText\""));
    EXPECT_THAT(messageOf("getAttDouble", {ncid, 0, "units"}),
                HasSubstr("The attribute \"units\" holds text (NC_CHAR): use \"getAttText\"."));
    const int other = createFile("uint.nc");
    host.call("defVar", {other, "u", NC_UINT64, double(id("defDim", {other, "x", 2}))});
    EXPECT_THAT(messageOf("putVar1Text", {other, 0, 0, "a"}), HasSubstr("use \"putVar1UInt64\""));
}

TEST_F(TypeFinding, NamesTheTypeThatIsNotForNumbers)
{
    const int ncid = createFile("att.nc");
    for (const auto& [xtype, name] :
         {std::pair(NC_CHAR, "NC_CHAR"), std::pair(NC_STRING, "NC_STRING")})
        EXPECT_THAT(messageOf("putAttDouble", {ncid, -1, "a", xtype, 1}),
                    HasSubstr(std::string("The type asked for is ") + name +
                              ", and the values are numbers"));
}

TEST_F(TypeFinding, NamesTheTypeThatAFileCannotHold)
{
    const int classic = createFile("classic.nc", "clobber");
    EXPECT_THAT(
        messageOf("defVar", {classic, "v", NC_INT64, Value::empty()}),
        HasSubstr("The type NC_INT64 is not available in this file, whose format is classic."));
    EXPECT_THAT(messageOf("defVar", {classic, "v", 99, Value::empty()}),
                HasSubstr("There is no type 99"));
    const int model = createFile("model.nc", NC_NETCDF4 | NC_CLASSIC_MODEL);
    host.call("defVar", {model, "v", NC_INT, Value::empty()});
    EXPECT_THAT(messageOf("putAttDouble", {model, 0, "_FillValue", NC_DOUBLE, 5}),
                HasSubstr("\"_FillValue\" must be of the type of its variable, NC_INT, and is of "
                          "type NC_DOUBLE."));
}

TEST_F(TypeFinding, NamesTheRangeThatValuesLeave)
{
    const int types = openTypes();
    EXPECT_THAT(messageOf("getVarShort", {types, 5}),
                HasSubstr("The variable \"numbers\" is of type NC_DOUBLE, which \"getVarDouble\" "
                          "reads as it is."));
    EXPECT_THAT(messageOf("getAttShort", {types, 5, "limit"}),
                HasSubstr("\"limit\" is of type NC_DOUBLE, which \"getAttDouble\" reads"));
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("putVaraDouble", {ncid, 3, row({0, 0}), row({1, 1}), 300}),
                HasSubstr("The variable \"flag\" is of type NC_BYTE, which holds -128 to 127."));
    const int other = createFile("att.nc");
    EXPECT_THAT(messageOf("putAttInt", {other, -1, "a", NC_BYTE, Value::scalar<std::int32_t>(999)}),
                HasSubstr("The attribute is of type NC_BYTE, which holds -128 to 127."));
}

} // namespace
