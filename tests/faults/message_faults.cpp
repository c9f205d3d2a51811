// SPDX-License-Identifier: BSD-3-Clause
// Failures while a message is composed: each call of the library, each allocation. The error stays
// the same, and nothing leaks.
#include "tests/library/failing_new.h"
#include "tests/faults/fault_test.h"
#include "open_file_registry.h"

#include <netcdf.h>

#include <cmath>

namespace faults {
namespace {

struct RefusedCall {
    const char* operation;
    std::vector<Value> arguments; // after the identifier of the file
};

Value row(std::initializer_list<double> numbers)
{
    return Value::row(std::vector<double>(numbers));
}

// One call for each kind of inquiry that a message makes.
std::vector<RefusedCall> refusedCalls()
{
    return {
        {"inqVarID", {"temprature"}},
        {"inqVarID", {"nothing of that kind"}},
        {"inqVar", {9}},
        {"inqDimID", {"z"}},
        {"inqDim", {9}},
        {"defVar", {"new", NC_INT, 7}},
        {"defVar", {"v", NC_INT, 0}},
        {"defVar", {"new", 99, 0}},
        {"inqAtt", {0, "rage"}},
        {"inqAtt", {NC_GLOBAL, "range"}},
        {"inqAttName", {0, 5}},
        {"inqNcid", {"h"}},
        {"inqGrpParent", {}},
        {"defGrp", {"g"}},
        {"defDim", {"x", 3}},
        {"defDim", {"a/b", 3}},
        {"getVaraDouble", {0, row({0, 0}), row({2, 9})}},
        {"getVaraDouble", {0, row({0, -1}), row({2, 3})}},
        {"getVaraDouble", {0, row({0, 0}), row({2})}},
        {"getVaraDouble", {0, row({0, 0}), row({2, INFINITY})}},
        {"getVarsDouble", {0, row({0, 0}), row({1, 1}), row({1, 0})}},
        {"getVarText", {0}},
        {"getVarDouble", {1}},
        {"putVarDouble", {0, 5}},
        {"putVarDouble", {0, Value::empty()}},
        {"putVaraDouble", {0, row({0, 0}), row({2, 3}), 5}},
        {"defVarChunking", {0, 0, row({1, 9})}},
        {"defVarChunking", {0, 0, 1}},
        {"defVarDeflate", {0, true, true, 10}},
        {"putAttDouble", {0, "_FillValue", NC_DOUBLE, 1}},
        {"inqVar", {"v"}},
    };
}

class MessageFaults : public FaultTest {
protected:
    Outcome attempt(const RefusedCall& call, const PreparedFile& file)
    {
        std::vector<Value> arguments = {file.ncid()};
        arguments.insert(arguments.end(), call.arguments.begin(), call.arguments.end());
        return host.attempt(call.operation, arguments);
    }
};

TEST_F(MessageFaults, LeaveTheErrorWhenLibraryCallsFail)
{
    std::size_t lookUps = 0;
    for (const RefusedCall& call : refusedCalls()) {
        const PreparedFile file(folder.path());
        Outcome expected;
        std::vector<std::string> calls;
        {
            LibraryStandIn library;
            expected = attempt(call, file);
            calls = library.calls;
        }
        ASSERT_TRUE(expected.raised) << call.operation;
        // The last calls are those for the message. An error of a failing call before them is
        // another one.
        for (std::size_t n = calls.size(); n > 0; --n) {
            SCOPED_TRACE(std::string(call.operation) + ": " + calls[n - 1]);
            LibraryStandIn library;
            library.failingCall = n;
            library.status = NC_EHDFERR;
            const Outcome outcome = attempt(call, file);
            ASSERT_TRUE(outcome.raised);
            if (outcome.raised->identifier != expected.raised->identifier ||
                outcome.raised->arguments != expected.raised->arguments)
                break;
            EXPECT_FALSE(outcome.raised->message.empty());
            ++lookUps;
        }
    }
    EXPECT_GT(lookUps, 300U);
    expectHealth();
}

TEST_F(MessageFaults, LeaveTheErrorAndNoMemoryWhenAllocationsFail)
{
    constexpr std::size_t mostAllocations = 2000;
    host.setRaiser(standalone::Raiser::throws); // the text is then composed while the module runs
    for (const RefusedCall& call : refusedCalls()) {
        const PreparedFile file(folder.path());
        attempt(call, file);
        const long before = liveNewBlocks();
        std::size_t failed = 0;
        for (std::size_t n = 1; n < mostAllocations; ++n) {
            for (const Failing failing : {Failing::once, Failing::fromThenOn}) {
                SCOPED_TRACE(std::string(call.operation) + ", allocation " + std::to_string(n));
                const FailingNew failingNew(n, failing);
                const Outcome outcome = attempt(call, file);
                EXPECT_TRUE(outcome.raised);
            }
            EXPECT_EQ(liveNewBlocks(), before);
            if (!FailingNew::hasFailed())
                break;
            failed = n;
        }
        EXPECT_GT(failed, 5U) << call.operation;
        EXPECT_LT(failed, mostAllocations - 1) << call.operation;
    }
    host.setRaiser(standalone::Raiser::returns);
    expectHealth();
}

TEST_F(MessageFaults, DoNotInquireAnAbandonedFile)
{
    const PreparedFile file(folder.path());
    {
        LibraryStandIn library;
        library.answers = {{"nc_close", NC_EHDFERR}};
        host.attempt("close", {file.ncid()});
    }
    for (const RefusedCall& call : refusedCalls()) {
        LibraryStandIn library;
        const Outcome outcome = attempt(call, file);
        EXPECT_TRUE(outcome.raised);
        for (const std::string& name : library.calls)
            EXPECT_NE(name, "nc_inq_path") << call.operation;
    }
    expectUnheld(file.ncid());
    expectHealth();
}

} // namespace
} // namespace faults
