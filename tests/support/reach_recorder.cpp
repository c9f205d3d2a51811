// SPDX-License-Identifier: BSD-3-Clause
// Part of an executable whose tests are to reach every operation: notes each row of the operation
// table that was carried out to the end, and when GRIDIO_REQUIRE_REACH is set, fails at the end of
// the run for the rows that were not. The linker's --wrap sends the host's calls through here.
#include "gateway/operation_table.h"
#include "vx/plug.h"
#include "vx/text.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <iostream>
#include <set>
#include <string>
#include <utility>

namespace {

using Ovard::gridio::OperationEntry;
using Ovard::gridio::operationTable;

using Call = std::pair<std::string, unsigned>; // operation, arguments after the name

std::set<Call>& completedCalls()
{
    static std::set<Call> calls;
    return calls;
}

class ReachReport : public testing::Environment {
public:
    void TearDown() override
    {
        if (std::getenv("GRIDIO_REQUIRE_REACH") == nullptr)
            return;
        std::size_t reached = 0;
        for (const OperationEntry& row : operationTable) {
            const bool isReached = completedCalls().count({row.name, row.nargs}) != 0;
            reached += isReached ? 1 : 0;
            // Its name comes twice in the table, and the look-up stops at the first.
            const bool isReachable = row.name != std::string("inqDimIDs") || row.nargs == 2;
            EXPECT_EQ(isReached, isReachable)
                << row.name << " with " << row.nargs << " arguments: "
                << (isReached ? "was to be out of reach" : "no test carried it out to the end");
        }
        std::cout << reached << " of " << operationTable.size()
                  << " rows were carried out to the end\n";
    }
};

[[maybe_unused]] const testing::Environment* const reachReport =
    testing::AddGlobalTestEnvironment(new ReachReport); // the framework deletes it

} // namespace

extern "C" {

void __real_plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[]);

void __wrap_plugFunction(int nlhs, vxArray* results[], int nrhs, const vxArray* arguments[])
{
    __real_plugFunction(nlhs, results, nrhs, arguments);
    const std::u16string_view name = vxGetText(arguments[0]); // the call succeeded: it is text
    completedCalls().emplace(std::string(name.begin(), name.end()),
                             static_cast<unsigned>(nrhs - 1));
}

} // extern "C"
