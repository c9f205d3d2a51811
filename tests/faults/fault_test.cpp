// SPDX-License-Identifier: BSD-3-Clause
#include "tests/faults/fault_test.h"

#include "check_status.h"
#include "open_file_registry.h"

#include <netcdf.h>

#include <algorithm>
#include <iterator>

namespace faults {
namespace {

// More than any test has open.
constexpr int fileCount = 512;

std::vector<int> without(std::vector<int> files, const std::vector<int>& others)
{
    std::vector<int> rest;
    std::set_difference(files.begin(), files.end(), others.begin(), others.end(),
                        std::back_inserter(rest));
    return rest;
}

} // namespace

std::vector<int> openFiles()
{
    std::vector<int> files;
    for (int i = 1; i < fileCount; ++i) {
        const int ncid = i << 16;
        int format = 0;
        if (nc_inq_format(ncid, &format) != NC_EBADID)
            files.push_back(ncid);
    }
    return files;
}

FaultTest::FaultTest() : arraysBefore_(host.liveArrays()), openBefore_(openFiles()) {}

FaultTest::~FaultTest() { host.failAllocation(0); }

void FaultTest::expectHealth()
{
    host.failAllocation(0);
    EXPECT_EQ(host.liveBlocks(), 0U);
    EXPECT_EQ(host.liveArrays(), arraysBefore_);
    EXPECT_THAT(host.breaches(), testing::IsEmpty());
    EXPECT_THAT(host.attempt("inqLibVers"), testsupport::succeeds());

    std::vector<int> open = without(openFiles(), openBefore_);
    std::vector<int> held;
    {
        LibraryStandIn library;
        host.unload();
        held = library.closed;
    }
    for (const int ncid : held)
        Ovard::gridio::unregisterOpenFile(ncid);
    // It stays open: the module may remember it as a file that is never to be closed.
    if (unheld_ != 0) {
        EXPECT_EQ(std::count(open.begin(), open.end(), unheld_), 1);
        open.erase(std::remove(open.begin(), open.end(), unheld_), open.end());
        openBefore_ = openFiles();
        unheld_ = 0;
    }
    EXPECT_EQ(held, open);
}

testing::Matcher<const Outcome&> failsWithStatus(const std::string& operation, int status)
{
    const bool isRemote = status >= NC_EDAPCONSTRAINT && status <= NC_EDAP && status != NC_ENODATA;
    return testsupport::raises(
        isRemote ? "librarydapFailure" : "libraryFailure",
        {operation, Ovard::gridio::errorCodeName(status), testsupport::libraryText(status)});
}

bool ranOutOfMemory(const Outcome& outcome)
{
    return outcome.raised && outcome.raised->name() == "outOfMemory";
}

} // namespace faults
