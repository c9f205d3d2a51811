// SPDX-License-Identifier: BSD-3-Clause
// The module in the host that porters copy, with a ledger around that host.
#include "tests/host/allocation_ledger.h"

#include GRIDIO_HOST_CALL

#include <gtest/gtest.h>
#include <netcdf.h>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

namespace {

using minimal::number;
using minimal::text;
using Values = std::vector<minimal::Value>;

// A file with a variable of numbers, one of strings, and attributes.
class ModuleInMinimalHost : public testing::Test {
protected:
    void SetUp() override
    {
        char name[] = "/tmp/gridio_minimal_XXXXXX";
        const int descriptor = mkstemp(name);
        ASSERT_GE(descriptor, 0);
        ::close(descriptor);
        path_ = name;
        ncid_ = one("create", {text(path_), text("netcdf4")});
        const minimal::Value dimid = one("defDim", {ncid_, text("x"), number(3)});
        numbers_ = one("defVar", {ncid_, text("numbers"), number(NC_DOUBLE), dimid});
        strings_ = one("defVar", {ncid_, text("strings"), number(NC_STRING), dimid});
        all("putAttText", {ncid_, numbers_, text("units"), text("metre")});
        all("endDef", {ncid_});
    }

    void TearDown() override
    {
        all("close", {ncid_});
        minimal::unload();
        std::remove(path_.c_str());
    }

    static Values all(const std::string& operation, Values arguments,
                      minimal::Entry entry = plugFunction)
    {
        arguments.insert(arguments.begin(), text(operation));
        contract::startLedger();
        Values results = minimal::call(entry, arguments, plugResultSlots);
        expectNothingLeft(operation);
        return results;
    }

    static minimal::Value one(const std::string& operation, const Values& arguments)
    {
        return all(operation, arguments).at(0);
    }

    static void expectNothingLeft(const std::string& operation)
    {
        EXPECT_EQ(contract::ledger().blocksLive, 0U) << operation;
        EXPECT_EQ(contract::ledger().strayFrees, 0U) << operation;
    }

    // Fails each allocation of the call once; the number of them.
    static std::size_t failEach(const std::string& operation, Values arguments,
                                minimal::Entry entry = plugFunction)
    {
        arguments.insert(arguments.begin(), text(operation));
        for (std::size_t failing = 1;; ++failing) {
            contract::startLedger(failing);
            try {
                minimal::call(entry, arguments, plugResultSlots);
                expectNothingLeft(operation);
                return contract::ledger().allocations;
            } catch (const minimal::Error& error) {
                EXPECT_STREQ(error.identifier().c_str(), minimal::outOfMemoryIdentifier);
                expectNothingLeft(operation);
            }
        }
    }

    std::string path_;
    minimal::Value ncid_;
    minimal::Value numbers_;
    minimal::Value strings_;
};

TEST_F(ModuleInMinimalHost, ReleasesItsBlocksInCallsThatSucceed)
{
    all("inqVar", {ncid_, numbers_});
    all("getVarDouble", {ncid_, numbers_});
    all("getAttText", {ncid_, numbers_, text("units")});
    all("getVar", {ncid_, strings_}, plugAnyFunction);
    all("describe", {ncid_}, plugDatasetFunction);
}

TEST_F(ModuleInMinimalHost, ReleasesItsBlocksInCallsThatFail)
{
    for (const Values& arguments :
         {Values{text("getVarDouble"), ncid_, number(77)},
          Values{text("putAttText"), ncid_, number(0), number(1), text("a")},
          Values{text("noOperation"), text("a")}, Values{}}) {
        contract::startLedger();
        EXPECT_THROW(minimal::call(plugFunction, arguments), minimal::Error);
        expectNothingLeft("a call that fails");
    }
}

TEST_F(ModuleInMinimalHost, ReleasesItsBlocksWhateverAllocationFails)
{
    EXPECT_GE(failEach("inqVar", {ncid_, numbers_}), 4U);
    EXPECT_GE(failEach("getVarDouble", {ncid_, numbers_}), 1U);
    EXPECT_GE(failEach("getAttText", {ncid_, numbers_, text("units")}), 1U);
    EXPECT_GE(failEach("getVar", {ncid_, strings_}, plugAnyFunction), 1U);
    EXPECT_GE(failEach("describe", {ncid_}, plugDatasetFunction), 10U);
}

} // namespace
