// SPDX-License-Identifier: BSD-3-Clause
// What the storage inquiries make of answers that no file brings the library to give, and what they
// hand over: four library functions are defined here, in front of the library's own.
#include "tests/support/in_library.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <optional>

namespace {

std::optional<int> storageAnswer;
std::optional<int> checksumAnswer;
std::optional<std::vector<int>> deflateAnswer; // shuffle, deflate, level
std::optional<int> checksumSeen;

} // namespace

extern "C" {

int nc_inq_var_chunking(int ncid, int varid, int* storage, std::size_t* sizes)
{
    const int status =
        testsupport::inLibrary(__func__, nc_inq_var_chunking)(ncid, varid, storage, sizes);
    if (storageAnswer)
        *storage = *storageAnswer;
    return status;
}

int nc_inq_var_fletcher32(int ncid, int varid, int* setting)
{
    if (!checksumAnswer)
        return testsupport::inLibrary(__func__, nc_inq_var_fletcher32)(ncid, varid, setting);
    *setting = *checksumAnswer;
    return NC_NOERR;
}

int nc_inq_var_deflate(int ncid, int varid, int* shuffle, int* deflate, int* level)
{
    if (!deflateAnswer)
        return testsupport::inLibrary(__func__, nc_inq_var_deflate)(ncid, varid, shuffle, deflate,
                                                                    level);
    *shuffle = deflateAnswer->at(0);
    *deflate = deflateAnswer->at(1);
    *level = deflateAnswer->at(2);
    return NC_NOERR;
}

int nc_def_var_fletcher32(int ncid, int varid, int setting)
{
    checksumSeen = setting;
    return testsupport::inLibrary(__func__, nc_def_var_fletcher32)(ncid, varid, setting);
}

} // extern "C"

namespace {

using namespace testsupport;
using standalone::Value;

class StorageAnswers : public ModuleTest {
protected:
    int ncid = 0;

    void SetUp() override
    {
        forget();
        ncid = createFile("s.nc");
        host.call("defVar", {ncid, "scalar", NC_INT, Value::empty()});
        host.call("defVar", {ncid, "v", NC_INT, host.call("defDim", {ncid, "x", 3}).at(0)});
    }
    void TearDown() override
    {
        forget();
        ModuleTest::TearDown();
    }

private:
    static void forget()
    {
        storageAnswer.reset();
        checksumAnswer.reset();
        deflateAnswer.reset();
        checksumSeen.reset();
    }
};

TEST_F(StorageAnswers, OfAChunkedScalarAreOneByZeroDeliberatelyUnlikeContiguousOnes)
{
    storageAnswer = NC_CHUNKED;
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}),
              (std::vector<Value>{"chunked", Value::empty(vxDOUBLE_CLASS, {1, 0})}));
    storageAnswer = NC_CONTIGUOUS;
    EXPECT_EQ(host.call("inqVarChunking", {ncid, 0}),
              (std::vector<Value>{"contiguous", Value::empty(vxDOUBLE_CLASS, {0, 0})}));
}

TEST_F(StorageAnswers, OfUnknownCodesAreRaisedWithTheCode)
{
    for (const int code : {2, 99, -3}) {
        storageAnswer = code;
        EXPECT_THAT(host.attempt("inqVarChunking", {ncid, 1}),
                    raises("unrecognizedChunkingCode", {static_cast<long>(code)}));
        checksumAnswer = code;
        EXPECT_THAT(host.attempt("inqVarFletcher32", {ncid, 1}),
                    raises("unrecognizedFletcher32Setting", {static_cast<long>(code)}));
    }
}

TEST_F(StorageAnswers, OfDeflateAreTrueForOneAlone)
{
    struct {
        std::vector<int> answer;
        std::vector<Value> inquired;
    } const cases[] = {
        {{1, 1, 9}, {true, true, 9}},
        {{0, 0, 5}, {false, false, 0}}, // a level without deflate is none
        {{2, 2, 5}, {false, false, 0}},
        {{-1, 1, 0}, {false, true, 0}},
    };
    for (const auto& c : cases) {
        deflateAnswer = c.answer;
        EXPECT_EQ(host.call("inqVarDeflate", {ncid, 1}), c.inquired) << c.answer[0];
    }
}

TEST_F(StorageAnswers, ToAnyChecksumSettingAreTheLibrarysOwn)
{
    for (const int setting : {0, 1, 7, -1}) {
        checksumSeen.reset();
        host.attempt("defVarFletcher32", {ncid, 1, setting});
        EXPECT_EQ(checksumSeen, setting);
    }
}

} // namespace
