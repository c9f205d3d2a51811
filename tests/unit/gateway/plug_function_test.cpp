// SPDX-License-Identifier: BSD-3-Clause
#include "vx/plug.h"

#include "tests/support/module_test.h"

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace testsupport {
namespace {

using standalone::Outcome;
using standalone::Raiser;
using standalone::Value;

using PlugFunction = ModuleTest;

TEST_F(PlugFunction, RenewsTheUnloadHandlerOnEveryCallBeforeAnythingElse)
{
    host.attempt("inqLibVers");
    EXPECT_EQ(host.unloadRegistrations(), 1U);
    host.attempt("noSuchOperation");
    EXPECT_EQ(host.unloadRegistrations(), 2U);
    host.attempt("open");
    EXPECT_EQ(host.unloadRegistrations(), 3U);
    host.attemptRaw({});
    EXPECT_EQ(host.unloadRegistrations(), 4U);
    host.failAllocation(1); // of the name
    host.attempt("inqLibVers");
    EXPECT_EQ(host.unloadRegistrations(), 5U);
}

TEST_F(PlugFunction, FreesTheNameExactlyOnceOnEveryWayOut)
{
    struct Way {
        const char* what;
        const char* operation;
        std::vector<Value> arguments;
        std::size_t failingAllocation;
        std::string raised; // empty: none
    };
    const Way ways[] = {
        {"normal return", "inqLibVers", {}, 0, ""},
        {"unknown name", "inqlibvers", {}, 0, "unrecognizedOperation"},
        {"wrong count", "inqLibVers", {1}, 0, "wrongNumberOfInputs"},
        {"error of a reader", "close", {"text"}, 0, "badScalarArgument"},
        {"error of the library", "close", {12345}, 0, "libraryFailure"},
        {"overflow", "close", {1e10}, 0, "argumentOutOfBounds"},
        {"host out of memory", "inqLibVers", {}, 2, "outOfMemory"},
    };
    for (const Raiser raiser : {Raiser::returns, Raiser::throws}) {
        for (const Way& way : ways) {
            host.reset();
            host.setRaiser(raiser);
            host.failAllocation(way.failingAllocation);
            const Outcome outcome = host.attempt(way.operation, way.arguments);
            if (way.raised.empty()) {
                EXPECT_THAT(outcome, succeeds()) << way.what;
            } else {
                ASSERT_TRUE(outcome.raised) << way.what;
                EXPECT_EQ(outcome.raised->name(), way.raised) << way.what;
            }
            EXPECT_EQ(host.blocksAllocated(), 1U) << way.what;
            EXPECT_EQ(host.blocksFreed(), 1U) << way.what;
            EXPECT_THAT(host.breaches(), testing::IsEmpty()) << way.what;
        }
    }
}

TEST_F(PlugFunction, RaisesTheSameWhetherTheHostsRaiserThrowsOrReturns)
{
    const std::pair<const char*, std::vector<Value>> failing[] = {
        {"nothing", {}}, {"inqLibVers", {1}}, {"close", {"x"}}, {"close", {1e10}}, {"close", {-5}}};
    for (const auto& [operation, arguments] : failing) {
        host.setRaiser(Raiser::returns);
        const Outcome returned = host.attempt(operation, arguments);
        host.setRaiser(Raiser::throws);
        const Outcome thrown = host.attempt(operation, arguments);
        ASSERT_TRUE(returned.raised && thrown.raised) << operation;
        EXPECT_EQ(returned.raised->identifier, thrown.raised->identifier);
        EXPECT_EQ(returned.raised->arguments, thrown.raised->arguments);
        EXPECT_EQ(returned.raised->message, thrown.raised->message);
    }
}

TEST_F(PlugFunction, RaisesForAMissingNameWithAnEmptyText)
{
    EXPECT_THAT(host.attemptRaw({}), raises("unrecognizedOperation", {""}));
}

TEST_F(PlugFunction, RaisesForAFirstArgumentThatIsNoTextWithAnEmptyText)
{
    const Value names[] = {Value(1.0),
                           Value(true),
                           Value::empty(),
                           Value::row<std::int8_t>({'o', 'p', 'e', 'n'}),
                           Value::cell({1, 1}, {"open"}),
                           Value::anythingElse(),
                           Value("")};
    for (const Value& name : names) {
        EXPECT_THAT(host.attemptRaw({name}), raises("unrecognizedOperation", {""}));
        EXPECT_THAT(host.attemptRaw({name, "x.nc", "write"}),
                    raises("unrecognizedOperation", {""}));
    }
}

TEST_F(PlugFunction, ReportsAnUnknownNameExactlyAsTheScriptWroteIt)
{
    for (const char* name : {"Open", " open", "open\t",
                             "gr\xC3\xB6\xC3\x9F"
                             "e",
                             "\xF0\x9F\x8C\x8D"})
        EXPECT_THAT(host.attempt(name), raises("unrecognizedOperation", {name}));
}

TEST_F(PlugFunction, ReadsANameOfAnyShapeInStorageOrder)
{
    EXPECT_THAT(host.attemptRaw({Value::text({10, 1}, u"inqLibVers")}), succeeds());
    EXPECT_THAT(host.attemptRaw({Value::text({2, 5}, u"inqLibVers")}), succeeds());
}

TEST_F(PlugFunction, TurnsAnOverflowInAnyHandlerIntoArgumentOutOfBounds)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const std::pair<const char*, std::vector<Value>> overflowing[] = {
        {"close", {2147483648.0}},
        {"close", {-2147483649.0}},
        {"setChunkCache", {-1, 1, Value::scalar(0.5F)}},
        {"setChunkCache", {1, 18446744073709551616.0, Value::scalar(0.5F)}},
        {"pOpen", {"x.nc", "write", Value::scalar<std::int8_t>(-1)}},
        {"getVar1Double", {0, 0, -1}},
        {"defDim", {0, "x", -1}},
    };
    for (const auto& [operation, arguments] : overflowing)
        EXPECT_THAT(host.attempt(operation, arguments), raises("argumentOutOfBounds")) << operation;
    EXPECT_THAT(host.attempt("close", {nan}), raises("badScalarArgument", {"ncid", "numeric"}));
}

TEST_F(PlugFunction, LetsTheHostsOwnErrorPassUnchanged)
{
    host.failAllocation(1);
    EXPECT_THAT(host.attempt("inqLibVers"), raises("outOfMemory"));
    EXPECT_EQ(host.blocksAllocated(), 0U);
    host.failAllocation(2);
    EXPECT_THAT(host.attempt("inqLibVers"), raises("outOfMemory"));
    EXPECT_THAT(host.attempt("inqLibVers"), succeeds());
}

} // namespace
} // namespace testsupport
