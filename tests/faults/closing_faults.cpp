// SPDX-License-Identifier: BSD-3-Clause
// Closing flushes a file first: its state when one of the two steps fails.
#include "tests/faults/fault_test.h"

#include <netcdf.h>

#include <algorithm>

namespace faults {
namespace {

class Closing : public FaultTest {
protected:
    int create(const Value& mode)
    {
        const Value path = folder.file("closing.nc");
        const int ncid = static_cast<int>(host.call("create", {path, mode}).at(0).toDouble());
        host.call("endDef", {ncid});
        return ncid;
    }

    // Closes the file while the call of that function returns the status.
    Outcome closeWith(int ncid, const std::string& function, int status, const Value& mode)
    {
        std::vector<std::string> calls;
        {
            const Value other = host.call("create", {folder.file("other.nc"), mode}).at(0);
            host.call("endDef", {other});
            LibraryStandIn library;
            host.call("close", {other});
            calls = library.calls;
        }
        LibraryStandIn library;
        const auto found = std::find(calls.begin(), calls.end(), function);
        library.failingCall = static_cast<std::size_t>(found - calls.begin()) + 1;
        library.status = status;
        return host.attempt("close", {ncid});
    }
};

TEST_F(Closing, GoesOnWhenThereIsNothingThatMayBeWritten)
{
    const int ncid = create("netcdf4");
    EXPECT_THAT(closeWith(ncid, "nc_sync", NC_EPERM, "netcdf4"), testsupport::succeeds());
    EXPECT_THAT(host.attempt("close", {ncid}), failsWithStatus("close", NC_EBADID));
    expectHealth();
}

TEST_F(Closing, LeavesAClassicFileOpenThatTheLibraryDoesNotClose)
{
    const int ncid = create("clobber");
    EXPECT_THAT(closeWith(ncid, "nc_close", NC_EINVAL, "clobber"),
                failsWithStatus("close", NC_EINVAL));
    host.call("sync", {ncid});
    expectHealth();
}

} // namespace
} // namespace faults
