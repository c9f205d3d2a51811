// SPDX-License-Identifier: BSD-3-Clause
// Whole reads of a variable without values, for which releases of the library return different
// statuses.
#include "tests/library/library_stand_in.h"
#include "tests/support/library_failure.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

namespace {

using namespace testsupport;
using standalone::Value;

class EmptyVariables : public ModuleTest {
protected:
    int ncid = 0;

    // An int variable n (0) and a char variable c (1) of no records, and an int variable s (2).
    void SetUp() override
    {
        ncid = createFile("e.nc");
        const Value none = host.call("defDim", {ncid, "t", 0}).at(0);
        host.call("defVar", {ncid, "n", NC_INT, none});
        host.call("defVar", {ncid, "c", NC_CHAR, none});
        host.call("defVar", {ncid, "s", NC_INT, Value::empty()});
        host.call("endDef", {ncid});
    }

    // Makes the library's typed reads return a status and do nothing.
    void answerReads(int status)
    {
        library.answers = {{"nc_get_var_int", status}, {"nc_get_var_text", status}};
    }

private:
    LibraryStandIn library;
};

TEST_F(EmptyVariables, AreFlattenedWithOrWithoutAStatusOfTheLibrary)
{
    for (const int status : {NC_NOERR, NC_EINVALCOORDS}) {
        answerReads(status);
        EXPECT_EQ(host.call("getVarInt", {ncid, 0}).at(0), Value::empty(vxINT32_CLASS)) << status;
        EXPECT_EQ(host.call("getVarText", {ncid, 1}).at(0), Value::empty(vxCHAR_CLASS)) << status;
    }
}

TEST_F(EmptyVariables, HaveNoClassWhenReadAsTextWithoutBeingText)
{
    EXPECT_THAT(host.attempt("getVarText", {ncid, 0}), failsWith("getVarText", NC_ECHAR));
    answerReads(NC_EINVALCOORDS); // from a library that checks the type later
    EXPECT_EQ(host.call("getVarText", {ncid, 0}).at(0), Value::empty(vxUNKNOWN_CLASS));
}

TEST_F(EmptyVariables, ReadAsCharArraysWhenTheyAreChar)
{
    EXPECT_THAT(host.attempt("getVarInt", {ncid, 1}), failsWith("getVarInt", NC_ECHAR));
    answerReads(NC_EINVALCOORDS);
    EXPECT_EQ(host.call("getVarInt", {ncid, 1}).at(0), Value::empty(vxCHAR_CLASS));
}

TEST_F(EmptyVariables, FailWithEveryOtherStatus)
{
    answerReads(NC_EHDFERR);
    EXPECT_THAT(host.attempt("getVarInt", {ncid, 0}), failsWith("getVarInt", NC_EHDFERR));
    EXPECT_THAT(host.attempt("getVarText", {ncid, 1}), failsWith("getVarText", NC_EHDFERR));
}

TEST_F(EmptyVariables, AreNotFlattenedFromOtherShapes)
{
    answerReads(NC_EINVALCOORDS);
    EXPECT_THAT(host.attempt("getVarInt", {ncid, 2}), failsWith("getVarInt", NC_EINVALCOORDS));
}

} // namespace
