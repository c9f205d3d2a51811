// SPDX-License-Identifier: BSD-3-Clause
// The fixture of every test that calls the module: a host with empty records, a folder, and a check
// of the records at the end. Files that a test leaves open are closed for it.
#pragma once

#include "hosts/standalone/host.h"
#include "tests/support/raised_matcher.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <string>

namespace testsupport {

class ModuleTest : public testing::Test {
protected:
    standalone::Host host;
    ScratchFolder folder;

    // A new file in the folder, in define mode, and its identifier.
    int createFile(const std::string& name, const standalone::Value& mode = "netcdf4");
    int openFile(const std::string& name, const standalone::Value& mode = "nowrite");
    void closeFile(int ncid);

    // Checks for leaks: every block freed, no array except those of Values, the contract kept.
    // Values that are members of a derived fixture must be destroyed by then.
    void TearDown() override;

private:
    std::size_t arraysBefore_ = host.liveArrays();
};

// Runs the unload handler and forgets every file, so that the next test starts with none.
void closeEverything(standalone::Host& host);

} // namespace testsupport
