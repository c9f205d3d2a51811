// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/operation_table.h"

#include "tests/support/raised_matcher.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <map>
#include <set>
#include <string>
#include <tuple>

namespace Ovard::gridio {
namespace {

using testing::ElementsAre;
using testsupport::outcomeOf;
using testsupport::raises;

struct ExpectedRow {
    const char* name;
    unsigned nargs;
    int code;
};

// Written independently, not copied from the table.
// clang-format off
const ExpectedRow expectedRows[] = {
    // File life cycle
    {"abort", 1, 0}, {"close", 1, 1}, {"pCreate", 4, 3}, {"create", 2, 4}, {"endDef", 1, 14},
    {"pEndDef", 5, 13}, {"pOpen", 3, 75}, {"open", 2, 76}, {"redef", 1, 111},
    {"setDefaultFormat", 1, 115}, {"setFill", 2, 116}, {"sync", 1, 118},
    // Chunk cache
    {"setChunkCache", 3, 119}, {"getChunkCache", 0, 120},
    // File-level inquiries
    {"inq", 1, 49}, {"inqDimIDs", 2, 55}, {"inqFormat", 1, 58}, {"inqLibVers", 0, 63},
    {"inqUnlimDims", 1, 65}, {"inqVarIDs", 1, 67}, {"inqDimIDs", 1, 55},
    // Groups
    {"defGrp", 2, 6}, {"inqGrpName", 1, 59}, {"inqGrpNameFull", 1, 60}, {"inqGrps", 1, 61},
    {"inqGrpParent", 1, 62}, {"inqNcid", 2, 64},
    // Dimensions
    {"defDim", 3, 5}, {"inqDim", 2, 53}, {"inqDimID", 2, 54}, {"renameDim", 3, 113},
    // Variables
    {"defVar", 4, 7}, {"inqVarID", 2, 66}, {"inqVar", 2, 68}, {"renameVar", 3, 114},
    // Storage settings
    {"defVarChunking", 4, 8}, {"defVarDeflate", 5, 9}, {"defVarFletcher32", 3, 11},
    {"inqVarChunking", 2, 69}, {"inqVarDeflate", 2, 70}, {"inqVarFletcher32", 2, 74},
    // Fill values
    {"defVarFill", 4, 10}, {"inqVarFill", 2, 73},
    // Attribute catalogue
    {"copyAtt", 5, 2}, {"delAtt", 3, 12}, {"inqAtt", 3, 50}, {"inqAttID", 3, 51},
    {"inqAttName", 3, 52}, {"renameAtt", 4, 112},
    // Attribute reads
    {"getAttDouble", 3, 15}, {"getAttFloat", 3, 16}, {"getAttInt64", 3, 17},
    {"getAttUint64", 3, 18}, {"getAttInt", 3, 19}, {"getAttUint", 3, 20}, {"getAttShort", 3, 21},
    {"getAttUshort", 3, 22}, {"getAttSchar", 3, 23}, {"getAttUchar", 3, 24},
    {"getAttUbyte", 3, 25}, {"getAttText", 3, 26},
    // Attribute writes
    {"putAttDouble", 5, 77}, {"putAttFloat", 5, 78}, {"putAttInt64", 5, 79},
    {"putAttUint64", 5, 80}, {"putAttInt", 5, 81}, {"putAttUint", 5, 82}, {"putAttShort", 5, 83},
    {"putAttUshort", 5, 84}, {"putAttSchar", 5, 85}, {"putAttUchar", 5, 86},
    {"putAttUbyte", 5, 87}, {"putAttText", 4, 88},
    // Whole-variable reads
    {"getVarDouble", 2, 27}, {"getVarFloat", 2, 28}, {"getVarInt64", 2, 29},
    {"getVarUint64", 2, 30}, {"getVarInt", 2, 31}, {"getVarUint", 2, 32}, {"getVarShort", 2, 33},
    {"getVarUshort", 2, 34}, {"getVarSchar", 2, 35}, {"getVarUchar", 2, 36}, {"getVarText", 2, 37},
    // Whole-variable writes
    {"putVarDouble", 3, 89}, {"putVarFloat", 3, 90}, {"putVarInt64", 3, 91},
    {"putVarUint64", 3, 92}, {"putVarInt", 3, 93}, {"putVarUint", 3, 94}, {"putVarShort", 3, 95},
    {"putVarUshort", 3, 96}, {"putVarSchar", 3, 97}, {"putVarUchar", 3, 98}, {"putVarText", 3, 99},
    // Subset reads
    {"getVar1Double", 3, 38}, {"getVaraDouble", 4, 38}, {"getVarsDouble", 5, 38},
    {"getVar1Float", 3, 39}, {"getVaraFloat", 4, 39}, {"getVarsFloat", 5, 39},
    {"getVar1Int64", 3, 40}, {"getVaraInt64", 4, 40}, {"getVarsInt64", 5, 40},
    {"getVar1Uint64", 3, 41}, {"getVaraUint64", 4, 41}, {"getVarsUint64", 5, 41},
    {"getVar1Int", 3, 42}, {"getVaraInt", 4, 42}, {"getVarsInt", 5, 42}, {"getVar1Uint", 3, 43},
    {"getVaraUint", 4, 43}, {"getVarsUint", 5, 43}, {"getVar1Short", 3, 44},
    {"getVaraShort", 4, 44}, {"getVarsShort", 5, 44}, {"getVar1Ushort", 3, 45},
    {"getVaraUshort", 4, 45}, {"getVarsUshort", 5, 45}, {"getVar1Schar", 3, 46},
    {"getVaraSchar", 4, 46}, {"getVarsSchar", 5, 46}, {"getVar1Uchar", 3, 47},
    {"getVaraUchar", 4, 47}, {"getVarsUchar", 5, 47}, {"getVar1Text", 3, 48},
    {"getVaraText", 4, 48}, {"getVarsText", 5, 48},
    // Subset writes
    {"putVar1Double", 4, 100}, {"putVaraDouble", 5, 100}, {"putVarsDouble", 6, 100},
    {"putVar1Float", 4, 101}, {"putVaraFloat", 5, 101}, {"putVarsFloat", 6, 101},
    {"putVar1Int64", 4, 102}, {"putVaraInt64", 5, 102}, {"putVarsInt64", 6, 102},
    {"putVar1UInt64", 4, 103}, {"putVaraUint64", 5, 103}, {"putVarsUint64", 6, 103},
    {"putVar1Int", 4, 104}, {"putVaraInt", 5, 104}, {"putVarsInt", 6, 104},
    {"putVar1UInt", 4, 105}, {"putVaraUint", 5, 105}, {"putVarsUint", 6, 105},
    {"putVar1Short", 4, 106}, {"putVaraShort", 5, 106}, {"putVarsShort", 6, 106},
    {"putVar1Ushort", 4, 107}, {"putVaraUshort", 5, 107}, {"putVarsUshort", 6, 107},
    {"putVar1Schar", 4, 108}, {"putVaraSchar", 5, 108}, {"putVarsSchar", 6, 108},
    {"putVar1Uchar", 4, 109}, {"putVaraUchar", 5, 109}, {"putVarsUchar", 6, 109},
    {"putVar1Text", 4, 110}, {"putVaraText", 5, 110}, {"putVarsText", 6, 110},
    // Named constants
    {"parameter", 1, 122}, {"getConstantNames", 0, 121},
};
// clang-format on

using Row = std::tuple<std::string, unsigned, int>;

TEST(OperationTable, HoldsExactlyThe163Rows)
{
    std::multiset<Row> expected;
    for (const ExpectedRow& row : expectedRows)
        expected.emplace(row.name, row.nargs, row.code);
    std::multiset<Row> actual;
    for (const OperationEntry& row : operationTable)
        actual.emplace(row.name, row.nargs, row.code);

    EXPECT_EQ(expected.size(), 163U);
    EXPECT_EQ(actual, expected);
}

TEST(OperationTable, HasNoRowForFiveCodes)
{
    std::set<int> missing;
    for (int code = 0; code <= 122; ++code)
        missing.insert(code);
    for (const OperationEntry& row : operationTable)
        missing.erase(row.code);
    EXPECT_THAT(missing, ElementsAre(56, 57, 71, 72, 117));
}

TEST(OperationTable, KeepsTheUnreachableSecondInqDimIDsRowAfterTheFirst)
{
    std::vector<unsigned> counts;
    std::set<Handler> handlers;
    for (const OperationEntry& row : operationTable) {
        if (std::strcmp(row.name, "inqDimIDs") == 0) {
            counts.push_back(row.nargs);
            handlers.insert(row.handler);
        }
    }
    EXPECT_THAT(counts, ElementsAre(2, 1));
    EXPECT_EQ(handlers.size(), 1U);
}

// The family whose handler serves an operation; a single operation is its own family.
std::string familyOf(const std::string& name)
{
    if (name == "putAttText")
        return name;
    for (const char* family : {"getAtt", "putAtt", "getVar1", "getVara", "getVars", "putVar1",
                               "putVara", "putVars", "getVar", "putVar"}) {
        if (name.rfind(family, 0) != 0)
            continue;
        const bool isSubset = std::string("1as").find(family[6]) != std::string::npos;
        return isSubset && family[6] != '\0' ? std::string(family, 6) + "Subset" : family;
    }
    return name;
}

TEST(OperationTable, ServesEachFamilyWithOneHandlerAndEveryOtherNameWithItsOwn)
{
    std::map<std::string, std::set<Handler>> handlersOfFamily;
    std::map<Handler, std::set<std::string>> familiesOfHandler;
    for (const OperationEntry& row : operationTable) {
        ASSERT_NE(row.handler, nullptr) << row.name;
        handlersOfFamily[familyOf(row.name)].insert(row.handler);
        familiesOfHandler[row.handler].insert(familyOf(row.name));
    }
    for (const auto& [family, handlers] : handlersOfFamily)
        EXPECT_EQ(handlers.size(), 1U) << family;
    for (const auto& [handler, families] : familiesOfHandler)
        EXPECT_EQ(families.size(), 1U) << *families.begin() << " and " << *families.rbegin();
}

TEST(FindOperation, GivesTheFirstRowOfEachName)
{
    for (const ExpectedRow& row : expectedRows) {
        if (std::strcmp(row.name, "inqDimIDs") == 0 && row.nargs == 1)
            continue; // never reached
        const OperationEntry* entry = findOperation(row.name, row.nargs);
        EXPECT_STREQ(entry->name, row.name);
        EXPECT_EQ(entry->code, row.code) << row.name;
        EXPECT_EQ(entry->nargs, row.nargs) << row.name;
    }
}

TEST(FindOperation, RaisesForEveryOtherNumberOfArguments)
{
    for (const ExpectedRow& row : expectedRows) {
        const unsigned right = std::strcmp(row.name, "inqDimIDs") == 0 ? 2 : row.nargs;
        for (unsigned nargs = 0; nargs <= 8; ++nargs) {
            if (nargs == right)
                continue;
            EXPECT_THAT(outcomeOf([&] { return findOperation(row.name, nargs); }),
                        raises("wrongNumberOfInputs"))
                << row.name << " with " << nargs;
        }
    }
}

TEST(FindOperation, StopsAtTheFirstInqDimIDsRowAlsoWhenTheSecondWouldTakeTheCount)
{
    EXPECT_EQ(findOperation("inqDimIDs", 2)->nargs, 2U);
    EXPECT_THAT(outcomeOf([] { return findOperation("inqDimIDs", 1); }),
                raises("wrongNumberOfInputs"));
}

TEST(FindOperation, TakesTheTwoCapitalSpellingsOnly)
{
    EXPECT_EQ(findOperation("putVar1UInt64", 4)->code, 103);
    EXPECT_EQ(findOperation("putVar1UInt", 4)->code, 105);
    for (const char* name : {"putVar1Uint64", "putVar1Uint", "getVar1UInt64", "putVaraUInt"})
        EXPECT_THAT(outcomeOf([&] { return findOperation(name, 4); }),
                    raises("unrecognizedOperation", {name}));
}

TEST(FindOperation, ComparesNamesByteForByte)
{
    for (const char* name : {"Open", "oPen", "OPEN", "ope", "opens", "open ", " open", "",
                             "nc_open", "getVarUbyte", "getVarByte", "inqDimIds"})
        EXPECT_THAT(outcomeOf([&] { return findOperation(name, 2); }),
                    raises("unrecognizedOperation", {name}));
}

TEST(FindOperation, LooksAtEveryCharacterAndAtTheWholeLength)
{
    for (const ExpectedRow& row : expectedRows) {
        const std::string name = row.name;
        std::set<std::string> others = {name + std::string(256, name.back())};
        for (std::size_t i = 0; i < name.size(); ++i)
            others.insert(std::string(name).replace(i, 1, "~"));
        for (const std::string& other : others)
            EXPECT_THAT(outcomeOf([&] { return findOperation(other.c_str(), row.nargs); }),
                        raises("unrecognizedOperation", {other}));
    }
}

TEST(FindOperation, ReportsANullNameWithAnEmptyText)
{
    EXPECT_THAT(outcomeOf([] { return findOperation(nullptr, 0); }),
                raises("unrecognizedOperation", {""}));
}

} // namespace
} // namespace Ovard::gridio
