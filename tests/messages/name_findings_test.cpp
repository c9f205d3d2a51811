// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class NameFinding : public testsupport::MessageTest {};

TEST_F(NameFinding, SuggestsANearVariableOrListsThem)
{
    const int ncid = makeFile();
    EXPECT_THAT(
        messageOf("inqVarID", {ncid, "titel"}),
        StartsWith("inqVarID: NC_ENOTVAR: Variable not found\n"
                   "There is no variable \"titel\" in the file. Did you mean \"title\"?\n"));
    EXPECT_THAT(messageOf("inqVarID", {ncid, "precipitation"}),
                HasSubstr("Its variables are \"t\", \"s\", \"title\" and \"flag\"."));
    EXPECT_THAT(messageOf("inqVarID", {ncid, "lon"}), HasSubstr("only a dimension of that name"));
    const int empty = createFile("empty.nc");
    EXPECT_THAT(messageOf("inqVarID", {empty, "t"}), HasSubstr("It has no variables."));
}

TEST_F(NameFinding, ListsTheIdentifiersOfVariables)
{
    const int ncid = makeFile();
    for (const char* operation : {"inqVar", "getVarDouble", "inqVarDeflate", "getAttText"}) {
        Values arguments = {ncid, 4};
        if (std::string(operation) == "getAttText")
            arguments.emplace_back("units");
        EXPECT_THAT(messageOf(operation, arguments),
                    HasSubstr("no variable with the identifier 4 in the file. It has 4 variables, "
                              "with identifiers from "
                              "0 to 3: \"t\", \"s\", \"title\" and \"flag\"."));
    }
    EXPECT_THAT(messageOf("getVarDouble", {ncid, -1}), HasSubstr("-1 is NC_GLOBAL"));
    EXPECT_THAT(messageOf("copyAtt", {ncid, 0, "units", ncid, 9}), HasSubstr("identifier 9"));
}

TEST_F(NameFinding, LooksIntoOtherGroups)
{
    const int ncid = createFile("groups.nc");
    host.call("defDim", {ncid, "n", 2});
    const int group = id("defGrp", {ncid, "model"});
    const int run = id("defGrp", {group, "run"});
    host.call("defVar", {run, "salt", NC_INT, Value::empty()});
    host.call("defDim", {run, "depth", 3});
    const std::string place =
        "The group \"/model/run\" (" + std::to_string(run) + ") has one of that name.";
    EXPECT_THAT(messageOf("inqVarID", {ncid, "salt"}), HasSubstr(place));
    EXPECT_THAT(messageOf("inqDimID", {ncid, "depth"}), HasSubstr(place));
    EXPECT_THAT(messageOf("inqVarID", {run, "sald"}),
                AllOf(HasSubstr("in the group \"/model/run\". Did you mean \"salt\"?"),
                      HasSubstr("group \"/model/run\".")));
    EXPECT_THAT(messageOf("inqNcid", {ncid, "modle"}),
                HasSubstr("no group \"modle\" in the file. Did you mean \"model\"?"));
    EXPECT_THAT(messageOf("inqGrpParent", {ncid}),
                HasSubstr("the root group, which has no parent"));
}

TEST_F(NameFinding, SuggestsANearDimension)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("inqDimID", {ncid, "long"}),
                HasSubstr("no dimension \"long\" in the file. Did you mean \"lon\"?"));
    EXPECT_THAT(messageOf("inqDim", {ncid, 3}),
                HasSubstr("from 0 to 2: \"lon\", \"lat\" and \"time\"."));
    const int other = createFile("other.nc");
    host.call("defDim", {other, "x", 5});
    EXPECT_THAT(
        messageOf("defVar", {other, "v", NC_INT, row({5})}),
        AllOf(HasSubstr("identifier 5 in the file. It has one, \"x\", with the identifier 0."),
              HasSubstr("not lengths")));
    EXPECT_THAT(messageOf("defVar", {other, "v", NC_INT, NAN}), HasSubstr("identifier NaN"));
}

TEST_F(NameFinding, SuggestsANearAttribute)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("getAttText", {ncid, 0, "unit"}),
                HasSubstr("The variable \"t\" has no attribute \"unit\". Did you mean \"units\"?"));
    EXPECT_THAT(messageOf("getAttText", {ncid, 0, "history"}),
                HasSubstr("The file itself (NC_GLOBAL, -1) has one of that name."));
    EXPECT_THAT(messageOf("getAttText", {ncid, -1, "units"}),
                HasSubstr("The variable \"t\" (0) has one of that name."));
    EXPECT_THAT(messageOf("inqAtt", {ncid, 1, "x"}),
                HasSubstr("\"s\" has no attribute \"x\". It has no attributes."));
    EXPECT_THAT(
        messageOf("inqAttName", {ncid, 0, 1}),
        HasSubstr("no attribute of the number 1: it has 1 attribute, and they count from 0."));
}

TEST_F(NameFinding, NamesTheSideOfACopyThatIsMeant)
{
    const int from = makeFile();
    const int to = createFile("to.nc");
    EXPECT_THAT(messageOf("copyAtt", {from, 0, "unit", to, -1}),
                HasSubstr("File \"" + folder.file("file.nc") + "\" (classic), variable \"t\""));
    EXPECT_THAT(messageOf("copyAtt", {from, 0, "units", to, 3}),
                HasSubstr("File \"" + folder.file("to.nc") + "\""));
}

TEST_F(NameFinding, NamesTheIdentifierThatIsNotOpen)
{
    const int ncid = makeFile();
    EXPECT_THAT(messageOf("inq", {2147483647}), HasSubstr("ncid is 2147483647"));
    EXPECT_THAT(messageOf("close", {12345678}),
                AllOf(HasSubstr("\nncid is 12345678, which is not the identifier of an open file "
                                "or group: it was closed, or "
                                "never opened. gridio_open_files() lists"),
                      Not(HasSubstr("File \""))));
    EXPECT_THAT(messageOf("copyAtt", {ncid, 0, "units", 99, 0}), HasSubstr("\nncid_out is 99"));
}

TEST_F(NameFinding, SaysWhatHasTheName)
{
    const int ncid = createFile("names.nc");
    host.call("defDim", {ncid, "x", 5});
    host.call("defVar", {ncid, "v", NC_INT, row({0})});
    host.call("defGrp", {ncid, "g"});
    host.call("putAttText", {ncid, -1, "a", "x"});
    host.call("putAttText", {ncid, -1, "b", "x"});
    EXPECT_THAT(messageOf("defVar", {ncid, "v", NC_INT, row({0})}),
                HasSubstr("already a variable \"v\" (0) in the file."));
    EXPECT_THAT(messageOf("defDim", {ncid, "x", 5}),
                HasSubstr("already a dimension \"x\" (0) in the file."));
    EXPECT_THAT(messageOf("defGrp", {ncid, "g"}), HasSubstr("already a group \"g\" in the file."));
    EXPECT_THAT(messageOf("renameAtt", {ncid, -1, "a", "b"}),
                HasSubstr("already an attribute \"b\"."));
}

TEST_F(NameFinding, SaysWhatIsWrongWithAName)
{
    const int ncid = createFile("names.nc");
    const struct {
        std::string name;
        const char* finding;
    } cases[] = {{"", "The name is empty."},
                 {"a/b", "holds a slash"},
                 {"a\tb", "\"a\\x09b\" holds a control character"},
                 {"a ", "ends with a blank"},
                 {" a", "begins with \" \", not with a letter"},
                 {"-a", "begins with \"-\""},
                 {std::string(300, 'a'), "The name has 300 bytes."}};
    for (const auto& c : cases)
        EXPECT_THAT(messageOf("defDim", {ncid, c.name, 3}), HasSubstr(c.finding)) << c.name;
}

} // namespace
