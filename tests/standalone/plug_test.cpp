// SPDX-License-Identifier: BSD-3-Clause
// Calling the module and unloading it.
#include "tests/standalone/stand_in_module.h"

#include "error_identifiers.h"

#include "vx/plug.h"

#include <algorithm>
#include <cstdlib>
#include <iostream>

namespace {

using standalone::Value;

class PlugFunction : public HostContract {};

TEST_F(PlugFunction, HasEnoughSlotsAllNullHoweverFewResultsAreAskedFor)
{
    for (const int nlhs : {0, 1, plugResultSlots, plugResultSlots + 3}) {
        const auto outcome = inCall(
            [&](const Call& call) {
                EXPECT_EQ(call.nlhs, nlhs);
                for (int i = 0; i < std::max(nlhs, plugResultSlots); ++i)
                    EXPECT_EQ(call.results[i], nullptr) << i;
                for (int i = 0; i < plugResultSlots; ++i)
                    call.results[i] = vxCreateDoubleScalar(i);
            },
            {}, nlhs);
        ASSERT_EQ(outcome.results.size(), static_cast<std::size_t>(plugResultSlots));
        for (int i = 0; i < plugResultSlots; ++i)
            EXPECT_EQ(outcome.results[static_cast<std::size_t>(i)], Value(i));
    }
}

TEST_F(PlugFunction, IsGivenEveryArgumentInOrderAndTheirNumber)
{
    const Value arguments[] = {"name", 1, true};
    for (std::size_t count = 0; count <= 3; ++count) {
        inCall(
            [&](const Call& call) {
                ASSERT_EQ(call.nrhs, static_cast<int>(count));
                for (std::size_t i = 0; i < count; ++i)
                    EXPECT_EQ(call.arguments[i], arguments[i].array());
            },
            {arguments, arguments + count});
    }
}

TEST_F(PlugFunction, HasNoResultsWhenItFails)
{
    const auto outcome = inCall([](const Call& call) {
        call.results[0] = vxCreateDoubleScalar(1);
        vxErrMsgId(Ovard::gridio::validate::argumentOutOfBounds());
    });
    EXPECT_TRUE(outcome.results.empty());
    ASSERT_TRUE(outcome.raised);
    EXPECT_EQ(outcome.raised->name(), "argumentOutOfBounds");
}

int firstCalled = 0;
int lastCalled = 0;

class PlugAtExit : public HostContract {
protected:
    void SetUp() override { firstCalled = lastCalled = 0; }
};

TEST_F(PlugAtExit, CallsTheLastRegistrationOnce)
{
    plugAtExit([] { ++firstCalled; });
    plugAtExit([] { ++lastCalled; });
    plugAtExit([] { ++lastCalled; });
    EXPECT_EQ(host.unloadRegistrations(), 3u);

    EXPECT_TRUE(host.unload());
    EXPECT_FALSE(host.unload());
    EXPECT_EQ(firstCalled, 0);
    EXPECT_EQ(lastCalled, 1);
}

TEST_F(PlugAtExit, LetsTheHandlerWarn)
{
    plugAtExit([] { vxWarningMsgId(Ovard::gridio::netcdf::closingFileHandle()); });
    host.unload();
    ASSERT_EQ(host.warnings().size(), 1u);
    EXPECT_EQ(host.warnings()[0].name(), "closingFileHandle");
}

// State of a module, made late: after the handler was registered.
struct LateState {
    ~LateState() { std::cerr << "state destroyed" << std::endl; }
};

void endWithLateState()
{
    plugAtExit([] { std::cerr << "handler called, "; });
    static LateState state;
    static_cast<void>(state);
    std::exit(0);
}

void endWithWarning()
{
    plugAtExit([] { vxWarningMsgId(Ovard::gridio::netcdf::closingFileHandle()); });
    std::exit(0);
}

TEST_F(PlugAtExit, CallsTheHandlerAtTheEndOfTheProcessBeforeTheModulesState)
{
    EXPECT_EXIT(endWithLateState(), testing::ExitedWithCode(0), "^handler called, state destroyed");
}

TEST_F(PlugAtExit, PrintsAWarningThatNobodyIsLeftToCollect)
{
    EXPECT_EXIT(endWithWarning(), testing::ExitedWithCode(0), "warning: Files were still open");
}

} // namespace
