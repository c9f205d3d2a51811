// SPDX-License-Identifier: BSD-3-Clause
// Every allocation of every operation fails in turn: of the host's, and of the module's own.
#include "tests/library/failing_new.h"
#include "tests/faults/any_operation_calls.h"
#include "tests/faults/fault_test.h"

#include <functional>

namespace faults {
namespace {

// More than any operation needs: the longest makes an array for each of the constants.
constexpr std::size_t mostAllocations = 400;

class EveryAllocation : public FaultTest, public testing::WithParamInterface<fuzz::Operation> {
protected:
    using Attempt = std::function<Outcome(const std::vector<Value>&)>;

    Outcome call(const std::vector<Value>& arguments)
    {
        return attempt(host, GetParam(), arguments);
    }

    // One call on a fresh file, and what must hold after it. True when it succeeded.
    bool attemptOnce(const Attempt& makeCall)
    {
        bool succeeded = false;
        {
            const PreparedFile file(folder.path(), GetParam().function);
            const std::vector<Value> arguments = argumentsThatSucceed(GetParam(), file);
            const std::size_t filesBefore = openFiles().size();
            const long blocksBefore = liveNewBlocks();
            int created = 0;
            {
                const Outcome outcome = makeCall(arguments);
                succeeded = outcome.succeeded();
                EXPECT_TRUE(succeeded || ranOutOfMemory(outcome)) << outcome;
                if (succeeded && GetParam().name == "pCreate")
                    created = static_cast<int>(outcome.results.at(1).toDouble());
            }
            // The registry has a block for each file that it holds.
            const long heldMore =
                static_cast<long>(openFiles().size() - filesBefore) - (created == 0 ? 0 : 1);
            const long blocksMore = liveNewBlocks() - blocksBefore;
            EXPECT_TRUE(blocksMore == heldMore || !isWarm_) << blocksMore << ", not " << heldMore;
            completeNewType(GetParam(), file);
            expectUnheld(created);
        }
        expectHealth();
        return succeeded;
    }

    // Makes the module and the host do their one-time allocations.
    void warmUp()
    {
        attemptOnce([this](const auto& arguments) { return call(arguments); });
        isWarm_ = true;
    }

    void failEachNew(Failing failing)
    {
        warmUp();
        for (std::size_t n = 1; n < mostAllocations; ++n) {
            SCOPED_TRACE("allocation " + std::to_string(n));
            attemptOnce([&](const auto& arguments) {
                const FailingNew failingNew(n, failing);
                return call(arguments);
            });
            if (!FailingNew::hasFailed())
                return;
        }
        FAIL() << "there was no end of allocations";
    }

private:
    bool isWarm_ = false;
};

TEST_P(EveryAllocation, FailsInTheHostAsItsErrorAndLeaksNothing)
{
    warmUp();
    for (std::size_t n = 1; n < mostAllocations; ++n) {
        SCOPED_TRACE("allocation " + std::to_string(n));
        const bool succeeded = attemptOnce([&](const auto& arguments) {
            host.failAllocation(n);
            return call(arguments);
        });
        if (succeeded)
            return;
    }
    FAIL() << "there was no end of allocations";
}

TEST_P(EveryAllocation, FailsInTheModuleOnceAndLeaksNothing) { failEachNew(Failing::once); }

TEST_P(EveryAllocation, FailsInTheModuleFromThenOnAndLeaksNothing)
{
    failEachNew(Failing::fromThenOn);
}

INSTANTIATE_TEST_SUITE_P(Operations, EveryAllocation, testing::ValuesIn(fuzz::operations()),
                         [](const auto& operation) { return operation.param.title(); });

} // namespace
} // namespace faults
