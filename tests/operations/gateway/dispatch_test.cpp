// SPDX-License-Identifier: BSD-3-Clause
// Dispatch: from the operation's name to the handler.
#include "tests/support/module_test.h"

#include <tuple>
#include <utility>
#include <vector>

namespace testsupport {
namespace {

using standalone::Outcome;
using standalone::Value;

using Dispatch = ModuleTest;

TEST_F(Dispatch, FindsOnlyTheExactSpellingOfOpen)
{
    const Value missing = folder.file("missing.nc");
    EXPECT_THAT(host.attempt("open", {missing, "nowrite"}),
                raises("libraryFailure", {"open", "2", "No such file or directory"}));
    for (const char* name : {"Open", "oPen", "opEn", "opeN", "OPEN"})
        EXPECT_THAT(host.attempt(name, {missing, "nowrite"}),
                    raises("unrecognizedOperation", {name}));
}

TEST_F(Dispatch, ReachesInqDimIDsWithTwoArgumentsAndDeliberatelyNotWithOne)
{
    const int ncid = createFile("x.nc");
    EXPECT_THAT(host.attempt("inqDimIDs", {ncid, false}), succeeds());
    EXPECT_THAT(host.attempt("inqDimIDs", {ncid}), raises("wrongNumberOfInputs"));
}

TEST_F(Dispatch, DeliberatelySpellsTwoSingleElementWritesWithACapitalI)
{
    const Value bad = "no number"; // past the look-up, the first reader refuses it
    for (const char* name : {"putVar1UInt64", "putVar1UInt"})
        EXPECT_THAT(host.attempt(name, {bad, 0, 0, 0}),
                    raises("badScalarArgument", {"ncid", "numeric"}));
    for (const char* name : {"putVar1Uint64", "putVar1Uint"})
        EXPECT_THAT(host.attempt(name, {bad, 0, 0, 0}), raises("unrecognizedOperation", {name}));
}

TEST_F(Dispatch, RefusesAnyArgumentForAnOperationThatTakesNone)
{
    for (const char* name : {"inqLibVers", "getConstantNames", "getChunkCache"}) {
        EXPECT_THAT(host.attempt(name), succeeds());
        for (const Value& argument : {Value(1), Value(""), Value::empty()}) {
            EXPECT_THAT(host.attempt(name, {argument}), raises("wrongNumberOfInputs")) << name;
            EXPECT_THAT(host.attempt(name, {argument, argument}), raises("wrongNumberOfInputs"));
        }
    }
}

TEST_F(Dispatch, ComparesTheCountBeforeItReadsAnArgument)
{
    EXPECT_THAT(host.attempt("close", {"text", "text"}), raises("wrongNumberOfInputs"));
    EXPECT_THAT(host.attempt("open", {1}), raises("wrongNumberOfInputs"));
}

TEST_F(Dispatch, SetsEveryResultWhateverTheScriptAskedFor)
{
    const int ncid = createFile("x.nc");
    for (const int nlhs : {-1, 0, 1, 2, 3, 4, 9}) {
        EXPECT_EQ(host.attemptRaw({"inq", ncid}, nlhs).results.size(), 4U) << nlhs;
        EXPECT_EQ(host.attemptRaw({"getChunkCache"}, nlhs).results.size(), 3U) << nlhs;
        EXPECT_EQ(host.attemptRaw({"inqGrps", ncid}, nlhs).results.size(), 1U) << nlhs;
        EXPECT_EQ(host.attemptRaw({"sync", ncid}, nlhs).results.size(), 0U) << nlhs;
    }
}

TEST_F(Dispatch, GivesNoResultWhenTheLibraryFails)
{
    for (const char* name : {"inq", "inqFormat", "inqUnlimDims", "inqVarIDs", "inqGrps",
                             "inqGrpName", "inqGrpNameFull", "inqGrpParent"}) {
        const Outcome outcome = host.attempt(name, {0x7FFF0000});
        EXPECT_THAT(outcome, raises("libraryFailure", {name, "NC_EBADID", "Not a valid ID"}));
        EXPECT_TRUE(outcome.results.empty());
        EXPECT_EQ(host.arraysCreated(), 0U) << name;
    }
}

// Each argument in turn is bad, with good ones before it and bad ones after it.
TEST_F(Dispatch, ReportsTheFirstBadArgument)
{
    const Value good = folder.file("x.nc");
    const int ncid = createFile("y.nc");
    const Value bad = Value::cell({1, 1}, {1});
    struct Parameter {
        Value good;
        const char* kind;
        std::vector<standalone::Argument> arguments;
    };
    const auto number = [](const Value& right, const char* name) {
        return Parameter{right, "badScalarArgument", {name, "numeric"}};
    };
    const auto text = [](const Value& right, const char* name) {
        return Parameter{right, "argumentWasNotChar", {name}};
    };
    const Parameter file = text(good, "file");
    const Parameter mode = {"nowrite", "badModeDatatype", {}};
    const Parameter id = number(ncid, "ncid");
    const std::pair<const char*, std::vector<Parameter>> operations[] = {
        {"open", {file, mode}},
        {"create", {file, mode}},
        {"pOpen", {file, mode, number(1, "chunksizehint")}},
        {"pCreate", {file, mode, number(1, "initialsize"), number(1, "chunksize")}},
        {"close", {id}},
        {"abort", {id}},
        {"sync", {id}},
        {"redef", {id}},
        {"endDef", {id}},
        {"pEndDef",
         {id, number(1, "h_minfree"), number(1, "v_align"), number(1, "v_minfree"),
          number(1, "r_align")}},
        {"setFill", {id, number(0, "new_fill_mode")}},
        {"setDefaultFormat", {number(1, "new default format")}},
        {"inq", {id}},
        {"inqFormat", {id}},
        {"inqUnlimDims", {id}},
        {"inqVarIDs", {id}},
        {"inqDimIDs", {id, {true, "expectedLogicalType", {"include_parents flag"}}}},
        {"defGrp", {id, text("g", "group name")}},
        {"inqGrps", {id}},
        {"inqGrpName", {id}},
        {"inqGrpNameFull", {id}},
        {"inqGrpParent", {id}},
        {"inqNcid", {id, text("g", "group name")}},
        {"setChunkCache", {number(1, "chunkSize"), number(1, "nelems"), number(1, "preemption")}},
        {"parameter", {text("NC_BYTE", "parameter")}},
    };
    for (const auto& [operation, parameters] : operations) {
        for (std::size_t i = 0; i < parameters.size(); ++i) {
            std::vector<Value> arguments(parameters.size(), bad);
            for (std::size_t before = 0; before < i; ++before)
                arguments[before] = parameters[before].good;
            EXPECT_THAT(host.attempt(operation, arguments),
                        raises(parameters[i].kind, parameters[i].arguments))
                << operation << ", argument " << i + 1;
        }
    }
}

} // namespace
} // namespace testsupport
