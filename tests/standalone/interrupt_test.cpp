// SPDX-License-Identifier: BSD-3-Clause
// Checking for an interrupt, and raising it.
#include "tests/standalone/stand_in_module.h"

#include "vx/interrupt.h"

namespace {

using standalone::Value;

class VxContinue : public HostContract {};

TEST_F(VxContinue, SaysYesUnlessTheUserWantsAnInterrupt)
{
    const auto outcome = inCall([](const Call& call) {
        for (int i = 0; i < 100; ++i)
            EXPECT_TRUE(vxContinue());
        call.results[0] = vxCreateDoubleScalar(1);
    });
    EXPECT_TRUE(outcome.succeeded());
}

TEST_F(VxContinue, LeavesTheInterruptPendingUntilItIsRaised)
{
    host.interruptQuestion(2);
    const auto outcome = inCall([](const Call&) {
        EXPECT_TRUE(vxContinue());
        EXPECT_FALSE(vxContinue());
        EXPECT_FALSE(vxContinue());
        vxRaiseInterrupt();
    });
    ASSERT_TRUE(outcome.raised);
    EXPECT_EQ(outcome.raised->identifier, standalone::interruptIdentifier);
    EXPECT_TRUE(vxContinue());
    EXPECT_EQ(host.continueQuestions(), 4u);
}

TEST_F(VxContinue, EndsArraysAndMemoryOfTheCallThatIsInterrupted)
{
    const auto outcome = inCall([](const Call& call) {
        call.results[0] = vxCreateDoubleScalar(1);
        static_cast<void>(vxCreateString("left"));
        vxRaiseInterrupt();
    });
    EXPECT_TRUE(outcome.results.empty());
    EXPECT_EQ(host.liveArrays(), 0u);
}

} // namespace
