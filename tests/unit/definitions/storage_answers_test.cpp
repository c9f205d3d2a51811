// SPDX-License-Identifier: BSD-3-Clause
// The storage operations for results that no file makes the library return, and the arguments that
// they pass.
#include "tests/library/library_stand_in.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

namespace {

using namespace testsupport;
using standalone::Value;

class StorageAnswers : public ModuleTest {
protected:
    int ncid = 0;
    LibraryStandIn library;

    void SetUp() override
    {
        ncid = createFile("s.nc");
        host.call("defVar", {ncid, "scalar", NC_INT, Value::empty()});
        host.call("defVar", {ncid, "v", NC_INT, host.call("defDim", {ncid, "x", 3}).at(0)});
    }
};

using InqVarChunking = StorageAnswers;
using InqVarFletcher32 = StorageAnswers;
using InqVarDeflate = StorageAnswers;
using DefVarFletcher32 = StorageAnswers;

TEST_F(InqVarChunking, GivesAChunkedScalarOneByZeroDeliberatelyUnlikeAContiguousOne)
{
    library.storage = NC_CHUNKED;
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}),
              (std::vector<Value>{"chunked", Value::empty(vxDOUBLE_CLASS, {1, 0})}));
    library.storage = NC_CONTIGUOUS;
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}),
              (std::vector<Value>{"contiguous", Value::empty(vxDOUBLE_CLASS, {0, 0})}));
}

TEST_F(InqVarChunking, RaisesForOtherStorageCodes)
{
    for (const int code : {2, 99, -3}) {
        library.storage = code;
        EXPECT_THAT(host.attempt("inqVarChunking", {ncid, 1}),
                    raises("unrecognizedChunkingCode", {static_cast<long>(code)}));
    }
}

TEST_F(InqVarFletcher32, RaisesForOtherSettings)
{
    for (const int code : {2, 99, -3}) {
        library.checksum = code;
        EXPECT_THAT(host.attempt("inqVarFletcher32", {ncid, 1}),
                    raises("unrecognizedFletcher32Setting", {static_cast<long>(code)}));
    }
}

TEST_F(InqVarDeflate, GivesFlagsThatAreTrueOnlyForOne)
{
    struct {
        std::array<int, 3> answer;
        std::vector<Value> inquired;
    } const cases[] = {
        {{1, 1, 9}, {true, true, 9}},
        {{0, 0, 5}, {false, false, 0}}, // without deflate the level does not count
        {{2, 2, 5}, {false, false, 0}},
        {{-1, 1, 0}, {false, true, 0}},
    };
    for (const auto& c : cases) {
        library.deflate = c.answer;
        EXPECT_EQ(host.call("inqVarDeflate", {ncid, 1}), c.inquired) << c.answer[0];
    }
}

TEST_F(DefVarFletcher32, HandsEverySettingToTheLibrary)
{
    for (const int setting : {0, 1, 7, -1}) {
        library.checksumGiven.reset();
        host.attempt("defVarFletcher32", {ncid, 1, setting});
        EXPECT_EQ(library.checksumGiven, setting);
    }
}

} // namespace
