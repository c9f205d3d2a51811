// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class CallMessage : public testsupport::MessageTest {};

TEST_F(CallMessage, ShowsHowToBeginWhenThereIsNoArgument)
{
    const auto outcome = host.attemptRaw({});
    ASSERT_TRUE(outcome.raised);
    EXPECT_EQ(outcome.raised->name(), "unrecognizedOperation");
    EXPECT_THAT(outcome.raised->message,
                AllOf(HasSubstr("ncid = gridio (\"open\", \"field.nc\", \"nowrite\");\n"),
                      HasSubstr("gridio (\"close\", ncid);\n"), HasSubstr("gridio_help ()")));
}

TEST_F(CallMessage, SaysWhatStandsInPlaceOfAnOperation)
{
    const auto messageFor = [this](const Value& first) {
        return host.attemptRaw({first}).raised->message;
    };
    EXPECT_THAT(messageFor(5), HasSubstr("here it is the number 5."));
    EXPECT_THAT(messageFor(Value::cell({1, 1}, {"open"})), HasSubstr("a cell array (1-by-1)"));
    EXPECT_THAT(messageFor(Value::anythingElse()), HasSubstr("an object or function"));
    EXPECT_THAT(messageFor(Value::structures({1, 2}, {"a"})), HasSubstr("a struct array (1-by-2)"));
    EXPECT_THAT(messageFor(""), HasSubstr("empty (0-by-0 char)"));
    EXPECT_THAT(messageFor(true), HasSubstr("the logical value true"));
    EXPECT_THAT(messageFor(Value::logicalBytes({1, 1}, {7})), HasSubstr("the logical value true"));
    EXPECT_THAT(messageFor(Value::row<std::int8_t>({1, 2})), HasSubstr("an int8 array (1-by-2)"));
}

TEST_F(CallMessage, SuggestsTheNearestOperation)
{
    EXPECT_THAT(messageOf("openn", {"a", "b"}),
                HasSubstr("no operation \"openn\": did you mean \"open\""));
    EXPECT_THAT(messageOf("putVar1Uint", {}), HasSubstr("did you mean \"putVar1UInt\"?"));
    EXPECT_THAT(messageOf("help!", {}),
                AllOf(HasSubstr("\"help!\". The first argument"), Not(HasSubstr("mean"))));
}

TEST_F(CallMessage, ShowsTheCallWhenTheNumberOfArgumentsIsWrong)
{
    EXPECT_EQ(messageOf("defVar", {1, "x"}),
              "\"defVar\" takes 4 arguments after its name, and 2 were given. The call is\n"
              "    varid = gridio (\"defVar\", ncid, name, xtype, dimids)\n"
              "gridio_help(\"defVar\") explains it.");
    EXPECT_THAT(messageOf("open", {"x"}), HasSubstr("and 1 was given"));
    EXPECT_THAT(messageOf("open", {}), HasSubstr("and none was given"));
    EXPECT_THAT(messageOf("inqLibVers", {1}), HasSubstr("takes no arguments"));
}

TEST_F(CallMessage, SaysWhatAnArgumentIsInsteadOfANumber)
{
    EXPECT_THAT(messageOf("inqVar", {0, "t"}),
                AllOf(HasSubstr("\"varid\" must be one numeric value"),
                      HasSubstr("is the text \"t\""),
                      EndsWith("The number of a variable is gridio(\"inqVarID\", ncid, NAME).")));
    EXPECT_THAT(messageOf("close", {"field.nc"}),
                HasSubstr("what gridio(\"open\", FILE, MODE) returned"));
    EXPECT_THAT(messageOf("close", {row({1, 2, 3})}), HasSubstr("a double array (1-by-3)"));
    EXPECT_THAT(messageOf("close", {std::nan("")}), HasSubstr("is the number NaN"));
    EXPECT_THAT(messageOf("close", {Value::empty(vxINT8_CLASS)}), HasSubstr("empty (0-by-0 int8)"));
    EXPECT_THAT(messageOf("copyAtt", {0, 0, "a", "b", 0}), HasSubstr("is the text \"b\""));
}

TEST_F(CallMessage, SaysWhatAnArgumentIsInsteadOfTextOrAFlag)
{
    EXPECT_THAT(messageOf("open", {5, "write"}),
                HasSubstr("\"file\" must be text, a char array, and is the number 5"));
    EXPECT_THAT(messageOf("renameAtt", {0, 0, "a", 7}), HasSubstr("and is the number 7"));
    EXPECT_THAT(messageOf("inqDimIDs", {0, 1}),
                HasSubstr("and is the number 1. The numbers 1 and 0"));
    EXPECT_THAT(messageOf("open", {"a", true}), HasSubstr("and is the logical value true"));
    EXPECT_THAT(messageOf("defVar", {0, "v", 6, Value::scalar<std::int32_t>(0)}),
                HasSubstr("and is the number 0 of class int32"));
    EXPECT_EQ(messageOf("defVar", {0, "v", 6, Value::row(std::vector<double>(1025))}),
              "The argument \"dimids\" has 1025 elements: at most 1024 are allowed.");
    EXPECT_THAT(messageOf("getVaraDouble", {0, 0, 0, "3"}),
                HasSubstr("COUNT must be numeric, and is the text \"3\""));
}

TEST_F(CallMessage, SuggestsTheNearestWord)
{
    EXPECT_THAT(messageOf("open", {"a", "read"}),
                HasSubstr("\"read\" is not a file mode: did you mean \"nowrite\"?"));
    EXPECT_THAT(messageOf("parameter", {"NC_DUBLE"}),
                HasSubstr("no constant \"NC_DUBLE\": did you mean \"NC_DOUBLE\"?"));
}

TEST_F(CallMessage, NamesTheDimensionsThatAnIndexMustCover)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 0, row({0, 0, 0}), row({4, 3})}),
                StartsWith("COUNT needs 3 elements, one for each dimension of variable \"t\" (lon, "
                           "lat, time), and "
                           "has 2."));
    EXPECT_THAT(messageOf("getVar1Double", {ncid, 0, 0}), HasSubstr("START needs 3 elements"));
    EXPECT_THAT(messageOf("getVaraDouble", {ncid, 1, 0, 1}),
                HasSubstr("\"s\" has no dimensions, so that there is nothing to give START for: it "
                          "is read and written "
                          "as a whole, here with \"getVarDouble\"."));
}

TEST_F(CallMessage, ShortensWhatTheScriptGave)
{
    const std::string longName(1000000, 'x');
    EXPECT_LT(messageOf(longName, {}).size(), 101000U);
    EXPECT_LT(messageOf("open", {"a", longName}).size(), 101000U);
    EXPECT_LT(messageOf("parameter", {longName}).size(), 101000U);
}

TEST_F(CallMessage, EscapesWhatTheScriptGave)
{
    EXPECT_THAT(messageOf("op\x1B[2J", {}), HasSubstr("\"op\\x1B[2J\""));
    EXPECT_THAT(messageOf("open", {"a", "\x07"}), HasSubstr("\"\\x07\" is not a file mode"));
}

} // namespace
