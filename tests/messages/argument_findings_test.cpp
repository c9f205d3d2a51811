// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;

class ArgumentFinding : public testsupport::MessageTest {};

TEST_F(ArgumentFinding, NamesTheNumberThatDoesNotFit)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("defDim", {ncid, "z", -5}),
                HasSubstr("\"dim_length\" is -5: it must be 0 or more."));
    EXPECT_THAT(messageOf("defDim", {ncid, "z", 1e30}),
                HasSubstr("\"dim_length\" is 1e+30: it must be 0 or more, and less than 2^64."));
    EXPECT_THAT(messageOf("inqVar", {ncid, 3e9}),
                HasSubstr("\"varid\" is 3000000000, which is no 32-bit integer."));
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 0, row({0, -1, 0}), row({1, 1, 1})}),
                HasSubstr("START holds -1 for dimension \"lat\" (second of 3, length 3). Positions "
                          "count from 0"));
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 0, row({0, 0, 0}), row({1, 1, -2})}),
                HasSubstr("COUNT holds -2 for dimension \"time\""));
}

TEST_F(ArgumentFinding, NamesTheTypeThatAFillValueDoesNotFit)
{
    const int ncid = createFile("fill.nc");
    host.call("defVar", {ncid, "flag", NC_BYTE, Value::empty()});
    for (const double value : {300.0, std::nan("")})
        EXPECT_THAT(messageOf("defVarFill", {ncid, 0, false, value}),
                    AllOf(HasSubstr("does not fit the variable \"flag\""),
                          HasSubstr("NC_BYTE, which holds -128 to 127.")));
}

TEST_F(ArgumentFinding, CountsTheValuesThatAVariableTakes)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 0, row({1, 2, 3})}),
                AllOf(HasSubstr("The variable has 144 values, now that its unlimited dimension "
                                "\"time\" has the length 12, "
                                "and 3 were given."),
                      EndsWith("variable \"t\" (lon 4, lat 3, time 12).")));
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 3, 1}),
                HasSubstr("The variable has 12 values, and 1 was given."));
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 3, Value::empty()}),
                HasSubstr("The variable has 12 values now."));
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 1, Value::scalar<float>(1)}),
                HasSubstr("takes values of class double, and they are of class single."));
    EXPECT_THAT(messageOf("putAttDouble", {ncid, 0, "a", NC_DOUBLE, Value::scalar<float>(1)}),
                HasSubstr("takes values of class double, and they are of class single."));
}

TEST_F(ArgumentFinding, NamesTheIndexThatIsNotFinite)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 0, row({0, 0, 0}), row({4, 3, INFINITY})}),
                AllOf(HasSubstr("COUNT holds Inf for dimension \"time\""),
                      HasSubstr("its length less START")));
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 99, row({0, NAN}), 1}),
                HasSubstr("START holds NaN as its second element"));
}

TEST_F(ArgumentFinding, NamesFileAndVariable)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("putVaraDouble", {ncid, 0, row({0, 0, 0}), row({4, 3, 1}), 1}),
                EndsWith("File \"" + folder.file("file.nc") +
                         "\" (classic), variable \"t\" (lon 4, lat 3, time 12)."));
    EXPECT_THAT(messageOf("inqVarChunking", {ncid, 0}), HasSubstr(folder.file("file.nc")));
    EXPECT_THAT(messageOf("getVar1Double", {ncid, 0, Value::empty()}),
                HasSubstr("(lon 4, lat 3, time 12)"));
}

TEST_F(ArgumentFinding, ShowsTheCallThatSetsAFillValue)
{
    const int ncid = createFile("fill.nc");
    host.call("defVar", {ncid, "v", NC_DOUBLE, Value::empty()});
    EXPECT_THAT(messageOf("putAttDouble", {ncid, 0, "_FillValue", NC_DOUBLE, -999}),
                HasSubstr("gridio (\"defVarFill\", ncid, varid, false, -999)"));
}

TEST_F(ArgumentFinding, IsLeftOutForAFileThatIsNotOpen)
{
    EXPECT_THAT(messageOf("getVaraDouble", {0, 0, 0, INFINITY}),
                AllOf(HasSubstr("COUNT holds Inf."), Not(HasSubstr("File"))));
}

} // namespace
