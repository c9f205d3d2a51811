// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class IndexAdvice : public testsupport::MessageTest {
protected:
    std::string reading(std::initializer_list<double> start, std::initializer_list<double> count)
    {
        return messageOf("getVaraDouble", {ncid_, 0, row(start), row(count)});
    }

    void SetUp() override { ncid_ = makeFile(); }

    int ncid_ = 0;
};

TEST_F(IndexAdvice, SaysHowFarABlockReaches)
{
    EXPECT_THAT(reading({0, 0, 10}, {4, 3, 5}),
                StartsWith("getVaraDouble: NC_EEDGE: Start+count exceeds dimension bound\n"
                           "START 10 and COUNT 5 reach to 15 along dimension \"time\" (third of 3, "
                           "unlimited, now of "
                           "length 12).\n"));
    EXPECT_THAT(reading({0, 2, 0}, {4, 2, 5}),
                HasSubstr("reach to 4 along dimension \"lat\" (second of 3, length 3)"));
    EXPECT_THAT(
        messageOf("getVarsDouble", {ncid_, 0, row({0, 0, 0}), row({2, 1, 7}), row({1, 1, 2})}),
        HasSubstr("START 0, COUNT 7 and STRIDE 2 reach to 13"));
}

TEST_F(IndexAdvice, SaysWhereADimensionEnds)
{
    EXPECT_THAT(messageOf("getVar1Double", {ncid_, 0, row({0, 3, 0})}),
                HasSubstr("START 3 lies past the end of dimension \"lat\" (second of 3, length 3): "
                          "positions go from 0 to 2."));
    EXPECT_THAT(reading({9, 0, 0}, {1, 1, 1}),
                HasSubstr("START 9 lies past the end of dimension \"lon\""));
}

TEST_F(IndexAdvice, RecognisesTheOrderOfNcdump)
{
    EXPECT_THAT(
        reading({0, 0, 0}, {12, 3, 4}),
        HasSubstr("In the reverse order they would fit: the order here is lon, lat, time."));
    EXPECT_THAT(reading({0, 0, 0}, {99, 3, 4}), Not(HasSubstr("reverse")));
}

TEST_F(IndexAdvice, RecognisesPositionsThatCountFromOne)
{
    EXPECT_THAT(reading({1, 1, 1}, {4, 3, 12}), HasSubstr("each START is less by 1, and they fit"));
    EXPECT_THAT(reading({1, 1, 2}, {4, 3, 12}), Not(HasSubstr("less by 1")));
}

TEST_F(IndexAdvice, NamesTheStrideThatIsNotPositive)
{
    EXPECT_THAT(
        messageOf("getVarsDouble", {ncid_, 0, row({0, 0, 0}), row({1, 1, 1}), row({1, 0, 1})}),
        HasSubstr("STRIDE holds 0 for dimension \"lat\""));
}

TEST_F(IndexAdvice, LetsAWriteGrowTheUnlimitedDimension)
{
    const Value two = row({1, 2});
    EXPECT_THAT(
        messageOf("putVaraDouble", {ncid_, 0, row({3, 0, 99}), row({2, 1, 1}), two}),
        AllOf(HasSubstr("along dimension \"lon\""), Not(HasSubstr("along dimension \"time\""))));
}

TEST_F(IndexAdvice, SaysThatThereAreNoRecordsYet)
{
    const int ncid = createFile("empty.nc", "clobber");
    host.call("defVar", {ncid, "v", NC_INT, double(id("defDim", {ncid, "t", 0}))});
    host.call("endDef", {ncid});
    EXPECT_THAT(messageOf("getVar1Int", {ncid, 0, 0}),
                HasSubstr("(unlimited, now of length 0): it has no records yet."));
}

} // namespace
