// SPDX-License-Identifier: BSD-3-Clause
// The fixture of every fault test, with the checks that must hold after each.
#pragma once

#include "hosts/standalone/host.h"
#include "tests/faults/operation_calls.h"
#include "tests/library/failing_new.h"
#include "tests/library/library_stand_in.h"
#include "tests/support/library_failure.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace faults {

using standalone::Outcome;
using standalone::Value;
using testsupport::Failing;
using testsupport::FailingNew;
using testsupport::LibraryStandIn;
using testsupport::liveNewBlocks;

class FaultTest : public testing::Test {
protected:
    FaultTest();
    ~FaultTest() override;

    standalone::Host host;
    testsupport::ScratchFolder folder;

    // Checks what must hold after any fault, then closes every file: no block and no array is left,
    // the host's contract was kept, the registry has exactly the open files, the next call works.
    // The test's Values must be destroyed by then.
    void expectHealth();

    // A file that is rightly open without being registered.
    void expectUnheld(int ncid) { unheld_ = ncid; }

private:
    std::size_t arraysBefore_ = 0;
    std::vector<int> openBefore_;
    int unheld_ = 0;
};

// The expected outcome when a library call returned that status.
testing::Matcher<const Outcome&> failsWithStatus(const std::string& operation, int status);

// Whether it is the host's out-of-memory error.
bool ranOutOfMemory(const Outcome& outcome);

// The files that the library has open.
std::vector<int> openFiles();

} // namespace faults
