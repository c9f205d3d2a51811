// SPDX-License-Identifier: BSD-3-Clause
// The ledger of the stand-alone host: what tests of the module rely on to see a fault.
#include "tests/standalone/stand_in_module.h"

#include <gmock/gmock.h>

#include <cstring>

namespace {

using standalone::Value;
using testing::IsEmpty;

class HostLedger : public HostContract {};

TEST_F(HostLedger, ShowsABlockThatWasNotFreed)
{
    inCall([](const Call& call) { vxArrayToString(call.arguments[0]); }, {"open"});
    EXPECT_EQ(host.liveBlocks(), 1u);
    EXPECT_EQ(host.blocksAllocated(), 1u);
    EXPECT_EQ(host.blocksFreed(), 0u);
    host.reset();
}

TEST_F(HostLedger, ShowsABlockThatWasFreedTwice)
{
    inCall([](const Call&) {
        void* block = vxCalloc(1, 1);
        vxFree(block);
        vxFree(block);
    });
    EXPECT_EQ(host.blocksFreed(), 1u);
    expectBreach("a block was freed that is not allocated");
}

TEST_F(HostLedger, ShowsABlockThatWasNeverAllocated)
{
    int local = 0;
    inCall([&](const Call&) { vxFree(&local); });
    expectBreach("a block was freed that is not allocated");
}

TEST_F(HostLedger, ShowsAnArgumentThatWasWrittenTo)
{
    const Value argument = Value::row<double>({1, 2});
    inCall([](const Call& call) { vxGetWritableData(const_cast<vxArray*>(call.arguments[0])); },
           {argument});
    expectBreach("not the module's own");
}

TEST_F(HostLedger, ShowsAnArrayOfAClassThatIsNotNumeric)
{
    const std::size_t one[] = {1, 1};
    for (const vxClassID classId : {vxCHAR_CLASS, vxLOGICAL_CLASS, vxCELL_CLASS, vxUNKNOWN_CLASS}) {
        inCall([&](const Call&) { vxCreateUninitNumericArray(2, one, classId, vxREAL); });
        expectBreach("not numeric");
    }
}

TEST_F(HostLedger, ShowsCellsThatDoNotExist)
{
    const std::size_t two[] = {2, 1};
    const std::function<void()> wrong[] = {
        [&] { vxSetCell(vxCreateCellArray(2, two), 2, vxCreateDoubleScalar(1)); },
        [&] { vxSetCell(vxCreateDoubleScalar(1), 0, vxCreateDoubleScalar(1)); },
        [&] {
            vxArray* cells = vxCreateCellArray(2, two);
            vxSetCell(cells, 0, cells);
        },
    };
    for (const auto& set : wrong) {
        inCall([&](const Call&) { set(); });
        expectBreach("a cell that does not exist was set");
    }
}

TEST_F(HostLedger, ShowsAnArrayThatHasAnOwnerAlready)
{
    const std::size_t two[] = {2, 1};
    inCall([&](const Call&) {
        vxArray* cells = vxCreateCellArray(2, two);
        vxArray* value = vxCreateDoubleScalar(1);
        vxSetCell(cells, 0, value);
        vxSetCell(cells, 1, value);
    });
    expectBreach("does not own");
}

TEST_F(HostLedger, RefusesAResultThatTheCallDoesNotOwn)
{
    const auto twice = inCall([](const Call& call) {
        call.results[0] = vxCreateDoubleScalar(1);
        call.results[1] = call.results[0];
    });
    ASSERT_TRUE(twice.raised);
    EXPECT_EQ(twice.raised->identifier, "standalone:internal");
    EXPECT_THAT(twice.results, IsEmpty());
}

TEST_F(HostLedger, ShowsASlotThatWasLeftOut)
{
    inCall([](const Call& call) { call.results[1] = vxCreateDoubleScalar(1); });
    expectBreach("a result slot was left out");
}

TEST_F(HostLedger, FailsTheAllocationThatWasNamedAndNoOther)
{
    const auto allocateFour = [](const Call&) {
        for (int i = 0; i < 2; ++i) {
            vxFree(vxCalloc(1, 1));
            vxCreateDoubleScalar(i);
        }
    };
    EXPECT_TRUE(inCall(allocateFour).succeeded());
    EXPECT_EQ(host.allocations(), 4u);

    for (std::size_t n = 1; n <= 4; ++n) {
        host.failAllocation(n);
        EXPECT_FALSE(inCall(allocateFour).succeeded()) << n;
        EXPECT_TRUE(inCall(allocateFour).succeeded()) << "after " << n;
    }
    host.failAllocation(5);
    EXPECT_TRUE(inCall(allocateFour).succeeded());
    host.failAllocation(0);
    EXPECT_TRUE(inCall(allocateFour).succeeded());
}

TEST_F(HostLedger, LimitsTheBytesOfOneArrayOrBlock)
{
    host.limitBytes(80);
    const auto create = [](std::size_t count) {
        return [count](const Call&) {
            const std::size_t dims[] = {count, 1};
            vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
            vxFree(vxCalloc(count, 8));
        };
    };
    EXPECT_TRUE(inCall(create(10)).succeeded());
    EXPECT_FALSE(inCall(create(11)).succeeded());
}

TEST_F(HostLedger, FillsWhatMayHoldAnythingWhenAskedTo)
{
    host.fillUninitialised(static_cast<unsigned char>(0xA5));
    const std::size_t dims[] = {3, 1};
    const Value value =
        created([&] { return vxCreateUninitNumericArray(2, dims, vxUINT8_CLASS, vxREAL); });
    EXPECT_EQ(value, Value::column<std::uint8_t>({0xA5, 0xA5, 0xA5}));
}

TEST_F(HostLedger, CountsArraysThatValuesHold)
{
    EXPECT_EQ(host.liveArrays(), 0u);
    {
        const Value value = Value::cell({1, 2}, {1, "x"});
        const Value copy = value;
        EXPECT_EQ(host.liveArrays(), 3u);
    }
    EXPECT_EQ(host.liveArrays(), 0u);
}

TEST_F(HostLedger, BelongsToOneHostAtATime) { EXPECT_THROW(standalone::Host(), std::logic_error); }

TEST_F(HostLedger, HandsOnAnArrayThatWasCreatedOutsideACall)
{
    const Value value = Value::adopt(vxCreateDoubleScalar(4));
    EXPECT_EQ(value, Value(4));
    EXPECT_THROW(Value::adopt(const_cast<vxArray*>(value.array())), std::invalid_argument);
}

TEST_F(HostLedger, IsCleanAfterAReset)
{
    vxCalloc(1, 1);
    vxCreateDoubleScalar(1);
    vxFree(&host);
    host.failAllocation(1);
    host.limitBytes(1);
    host.reset();
    EXPECT_EQ(host.liveBlocks(), 0u);
    EXPECT_EQ(host.liveArrays(), 0u);
    EXPECT_EQ(host.allocations(), 0u);
    EXPECT_THAT(host.breaches(), IsEmpty());
    EXPECT_TRUE(inCall([](const Call&) { vxCreateDoubleScalar(1); }).succeeded());
}

} // namespace
