// SPDX-License-Identifier: BSD-3-Clause
// Calls that would crash the library, and must not crash a script.
#include "tests/operations/operation_test.h"
#include "tests/support/library_failure.h"
#include "tests/support/library_file.h"
#include "tests/support/raised_matcher.h"

#include <netcdf.h>

#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/resource.h>
#include <unistd.h>

namespace {

// During its lifetime no file may grow beyond this size, as on a full disk.
class FileSizeLimit {
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit = {bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { setrlimit(RLIMIT_FSIZE, &before_); }
    FileSizeLimit(const FileSizeLimit&) = delete;
    FileSizeLimit& operator=(const FileSizeLimit&) = delete;

private:
    rlimit before_ = {};
};

using testsupport::OperationTest;
using testsupport::raises;

class CrashGuards : public OperationTest {
protected:
    // A classic file in define mode with a fill value of the wrong type, which the library accepts
    // and then cannot write.
    int createUnclosableFile()
    {
        const int ncid = id("create", {folder.file("unclosable.nc"), "clobber"});
        const double dimid = number("defDim", {ncid, "x", 2});
        const int varid = id("defVar", {ncid, "v", NC_SHORT, row({dimid})});
        host.call("putAttInt", {ncid, varid, "_FillValue", NC_INT, Value::scalar<std::int32_t>(1)});
        return ncid;
    }
};

TEST_F(CrashGuards, RefuseUnregisteredUserDefinedFormats)
{
    for (const int flag : {NC_UDF0, NC_UDF1, NC_UDF0 | NC_NETCDF4}) {
        EXPECT_THAT(attempt("create", {folder.file("x.nc"), flag}),
                    raises("libraryFailure", {"create", "NC_EINVAL", "Invalid argument"}));
        EXPECT_THAT(attempt("pCreate", {folder.file("x.nc"), flag, 0, 4096}),
                    raises("libraryFailure", {"pCreate", "NC_EINVAL", "Invalid argument"}));
    }
}

TEST_F(CrashGuards, RefuseToOpenAFileInMemoryWithoutMemory)
{
    host.call("close", host.call("create", {folder.file("x.nc"), "clobber"}));
    EXPECT_THAT(attempt("open", {folder.file("x.nc"), NC_INMEMORY}),
                raises("libraryFailure", {"open", "NC_EINVAL", "Invalid argument"}));
    EXPECT_THAT(attempt("pOpen", {folder.file("x.nc"), NC_INMEMORY | NC_WRITE, 4096}),
                raises("libraryFailure", {"pOpen", "NC_EINVAL", "Invalid argument"}));
    for (const int mode : {-128, NC_INMEMORY | NC_UDF0, NC_INMEMORY | NC_UDF1})
        EXPECT_THAT(attempt("open", {folder.file("x.nc"), mode}), failsWith("open", NC_ENOTBUILT));
}

// The library itself refuses a file in memory with some of the flags in -1.
TEST_F(CrashGuards, LeaveEveryOtherOpenFlagToTheLibrary)
{
    host.call("close", host.call("create", {folder.file("x.nc"), "clobber"}));
    for (const int mode : {-1, NC_INMEMORY | NC_DISKLESS, NC_INMEMORY | NC_MMAP}) {
        int ncid = 0;
        const int status = nc_open(folder.file("x.nc").c_str(), mode, &ncid);
        ASSERT_NE(status, NC_EINVAL);
        EXPECT_THAT(attempt("open", {folder.file("x.nc"), mode}),
                    testsupport::failsInLibrary("open", std::to_string(status), status));
    }
}

TEST_F(CrashGuards, AllowZeroAlignmentsInAFileWithoutVariables)
{
    const int ncid = id("create", {folder.file("x.nc"), "clobber"});
    host.call("defDim", {ncid, "x", 3});
    EXPECT_THAT(attempt("pEndDef", {ncid, 0, 0, 0, 0}), testsupport::succeeds());
    host.call("close", {ncid});
}

TEST_F(CrashGuards, RefuseZeroAlignmentsThatTheLibraryWouldDivideBy)
{
    const int ncid = id("create", {folder.file("x.nc"), "clobber"});
    host.call("defVar", {ncid, "v", NC_INT, row({})});
    const auto refusal = raises("libraryFailure", {"pEndDef", "NC_EINVAL", "Invalid argument"});
    EXPECT_THAT(attempt("pEndDef", {ncid, 0, 0, 0, 4}), refusal);
    EXPECT_THAT(attempt("pEndDef", {ncid, 0, 4, 0, 0}), refusal);
    EXPECT_THAT(attempt("pEndDef", {ncid, 0, 4, 0, 4}), testsupport::succeeds());
    host.call("close", {ncid});

    const int netcdf4 = id("create", {folder.file("x4.nc"), "netcdf4"});
    EXPECT_THAT(attempt("pEndDef", {netcdf4, 0, 0, 0, 0}), testsupport::succeeds());
    host.call("close", {netcdf4});
}

TEST_F(CrashGuards, LeaveZeroAlignmentsToTheLibraryInDataMode)
{
    const int ncid = id("create", {folder.file("x.nc"), "clobber"});
    host.call("defVar", {ncid, "v", NC_INT, row({})});
    host.call("endDef", {ncid});
    const auto refusal = raises(
        "libraryFailure", {"pEndDef", "NC_ENOTINDEFINE", "Operation not allowed in data mode"});
    EXPECT_THAT(attempt("pEndDef", {ncid, 0, 0, 0, 0}), refusal);
    host.call("close", {ncid});
    const int readOnly = id("open", {folder.file("x.nc"), "nowrite"});
    EXPECT_THAT(attempt("pEndDef", {readOnly, 0, 0, 0, 0}), refusal);
    host.call("close", {readOnly});
}

TEST_F(CrashGuards, KeepAClassicFileUsableThatCannotBeClosed)
{
    const int ncid = createUnclosableFile();
    const auto refusal =
        raises("libraryFailure",
               {"close", "NC_EBADTYPE", "Not a valid data type or _FillValue type mismatch"});
    EXPECT_THAT(attempt("close", {ncid}), refusal);
    EXPECT_THAT(attempt("close", {ncid}), refusal);
    EXPECT_EQ(number("inq", {ncid}), 1);

    host.call("delAtt", {ncid, 0, "_FillValue"});
    host.call("close", {ncid});
}

TEST_F(CrashGuards, LetAClassicFileBeAbortedThatCannotBeClosed)
{
    host.call("abort", {createUnclosableFile()});
}

// When it closes a file, the library would not report values that it could not write. (If the disk
// takes part of them, closing again does not repair the file: then there is only the error.)
TEST_F(CrashGuards, KeepAClassicFileOpenWhileTheDiskIsFull)
{
    const int ncid = id("create", {folder.file("full.nc"), "clobber"});
    const double dimid = number("defDim", {ncid, "x", 100});
    const int varid = id("defVar", {ncid, "v", NC_DOUBLE, row({dimid})});
    host.call("endDef", {ncid});
    host.call("putVarDouble", {ncid, varid, Value::row(std::vector<double>(100, 1.5))});
    {
        const FileSizeLimit full(0);
        EXPECT_THAT(attempt("close", {ncid}),
                    raises("libraryFailure", {"close", "27", "File too large"}));
    }
    host.call("close", {ncid});

    const auto written = testsupport::LibraryFile::open(folder.file("full.nc"));
    std::vector<double> values(100);
    testsupport::require(nc_get_var_double(written.ncid(), varid, values.data()));
    EXPECT_EQ(values, std::vector<double>(100, 1.5));
}

TEST_F(CrashGuards, LetATruncatedReadOnlyFileBeClosed)
{
    const int made = id("create", {folder.file("short.nc"), "clobber"});
    host.call("defDim", {made, "x", 100});
    host.call("close", {made});
    const int ncid = id("open", {folder.file("short.nc"), "nowrite"});
    std::filesystem::resize_file(folder.file("short.nc"), 5);
    host.call("close", {ncid});
}

// Another process has the file open and locked, as HDF5 does.
TEST_F(CrashGuards, DoNotEmptyALockedFile)
{
    const std::string path = folder.file("locked.nc");
    const int made = id("create", {path, "netcdf4"});
    host.call("putAttText", {made, NC_GLOBAL, "title", "kept"});
    host.call("close", {made});
    const auto size = std::filesystem::file_size(path);
    for (const int lock : {LOCK_SH, LOCK_EX}) {
        const int other = ::open(path.c_str(), O_RDONLY);
        ASSERT_EQ(flock(other, lock), 0);
        for (const auto& mode : {Value("netcdf4"), Value(NC_NETCDF4 | NC_CLASSIC_MODEL)}) {
            EXPECT_THAT(attempt("create", {path, mode}),
                        raises("libraryFailure", {"create", "13", "Permission denied"}));
            EXPECT_THAT(attempt("pCreate", {path, mode, 0, 0}),
                        raises("libraryFailure", {"pCreate", "13", "Permission denied"}));
        }
        EXPECT_EQ(std::filesystem::file_size(path), size);
        ::close(other);
    }
    host.call("close", {number("create", {path, "netcdf4"})});
}

} // namespace
