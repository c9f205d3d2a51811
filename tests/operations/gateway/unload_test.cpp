// SPDX-License-Identifier: BSD-3-Clause
// Open files when the host unloads the module.
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <sys/wait.h>
#include <unistd.h>

namespace testsupport {
namespace {

using standalone::Value;
using testing::HasSubstr;

class Unload : public ModuleTest {
protected:
    std::size_t warningsOfUnload()
    {
        const std::size_t before = host.warnings().size();
        EXPECT_TRUE(host.unload());
        return host.warnings().size() - before;
    }

    // A file with one record of two numbers, still open and unsaved.
    int createWithData(const std::string& name, const Value& mode)
    {
        const int ncid = createFile(name, mode);
        const Value time = host.call("defDim", {ncid, "time", 0})[0];
        const Value x = host.call("defDim", {ncid, "x", 2})[0];
        const Value dims = Value::row<double>({x.toDouble(), time.toDouble()});
        const Value varid = host.call("defVar", {ncid, "v", NC_DOUBLE, dims})[0];
        host.call("endDef", {ncid});
        host.call("putVaraDouble", {ncid, varid, Value::row<double>({0, 0}),
                                    Value::row<double>({2, 1}), Value::row<double>({1.5, -2})});
        return ncid;
    }
};

bool isOpen(int ncid)
{
    int format = 0;
    return nc_inq_format(ncid, &format) == NC_NOERR;
}

TEST_F(Unload, DoesNotWarnWhenNoFileIsOpen)
{
    host.call("inqLibVers");
    EXPECT_EQ(warningsOfUnload(), 0U);
    closeFile(createFile("x.nc"));
    EXPECT_EQ(warningsOfUnload(), 0U);
}

TEST_F(Unload, WarnsOnceWithoutArgumentsAndClosesEveryFile)
{
    const int ids[] = {createFile("a.nc"), createFile("b.nc", "clobber"), createFile("c.nc")};
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_EQ(host.warnings()[0].identifier, "Ovard:gridio:netcdf:closingFileHandle");
    EXPECT_THAT(host.warnings()[0].arguments, testing::IsEmpty());
    for (const int ncid : ids)
        EXPECT_FALSE(isOpen(ncid));
}

TEST_F(Unload, CompletesFilesOfEveryFormat)
{
    const std::pair<const char*, Value> formats[] = {
        {"classic", "clobber"},  {"64-bit offset", "64bit_offset"}, {"cdf5", 32},
        {"netCDF-4", "netcdf4"}, {"netCDF-4 classic model", 4352},
    };
    for (const auto& [kind, mode] : formats)
        createWithData(kind, mode);
    EXPECT_EQ(warningsOfUnload(), 1U);
    for (const auto& [kind, mode] : formats) {
        EXPECT_EQ(ncdumpKind(folder.file(kind)), kind);
        EXPECT_THAT(ncdump(folder.file(kind)), HasSubstr(" v =\n  1.5, -2 ;\n")) << kind;
    }
}

// The child's copies of the files are as they were when it was forked.
TEST_F(Unload, ClosesNothingThatAnotherProcessOpened)
{
    const std::pair<const char*, Value> formats[] = {
        {"classic", "clobber"}, {"64-bit offset", "64bit_offset"}, {"cdf5", 32}};
    std::vector<int> ids;
    for (const auto& [kind, mode] : formats)
        ids.push_back(createWithData(kind, mode));
    int channel[2] = {};
    ASSERT_EQ(pipe(channel), 0);
    const pid_t child = fork();
    if (child == 0) {
        char isWritten = 0;
        const bool mayEnd = read(channel[0], &isWritten, 1) == 1;
        const int own = createWithData("own", "clobber");
        host.unload();
        _exit(mayEnd && !isOpen(own) && host.warnings().size() == 1 ? 0 : 1);
    }
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const Value count = Value::row<double>({2, 1});
        for (const double record : {1., 2.})
            host.call("putVaraDouble", {ids[i], 0, Value::row<double>({0, record}), count,
                                        Value::row<double>({record, record})});
        host.call("sync", {ids[i]});
    }
    ASSERT_EQ(write(channel[1], "w", 1), 1);
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);

    EXPECT_EQ(warningsOfUnload(), 1U);
    for (const auto& [kind, mode] : formats)
        EXPECT_THAT(ncdump(folder.file(kind)), HasSubstr(" v =\n  1.5, -2,\n  1, 1,\n  2, 2 ;\n"))
            << kind;
    EXPECT_THAT(ncdump(folder.file("own")), HasSubstr(" v =\n  1.5, -2 ;\n"));
}

TEST_F(Unload, DoesNotWarnOfFilesThatAnotherProcessOpened)
{
    const int ncid = createWithData("x.nc", "clobber");
    const pid_t child = fork();
    if (child == 0) {
        host.unload();
        _exit(host.warnings().empty() && isOpen(ncid) ? 0 : 1);
    }
    int status = -1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    closeFile(ncid);
}

TEST_F(Unload, CompletesAFileStillInDefineMode)
{
    const int ncid = createFile("x.nc", "clobber");
    host.call("defDim", {ncid, "x", 3});
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\ndimensions:\n\tx = 3 ;\n}\n");
}

TEST_F(Unload, ClosesFilesOpenedWithOpenAndPOpen)
{
    closeFile(createFile("x.nc"));
    closeFile(createFile("y.nc", "clobber"));
    const int opened = openFile("x.nc");
    const int tuned =
        static_cast<int>(host.call("pOpen", {folder.file("y.nc"), "write", 4096}).at(1).toDouble());
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_FALSE(isOpen(opened));
    EXPECT_FALSE(isOpen(tuned));
}

TEST_F(Unload, DeliberatelyNeitherWarnsAboutNorClosesAFileOfPCreate)
{
    const int ncid = static_cast<int>(
        host.call("pCreate", {folder.file("p.nc"), "clobber", 0, 8192}).at(1).toDouble());
    EXPECT_EQ(warningsOfUnload(), 0U);
    EXPECT_TRUE(isOpen(ncid));

    EXPECT_THAT(host.attempt("close", {ncid}), succeeds()); // and finds nothing to remove
    EXPECT_FALSE(isOpen(ncid));
}

TEST_F(Unload, ClosesTheFileOfCreateAndNotTheOneOfPCreate)
{
    const int registered = createFile("x.nc");
    const int unknown = static_cast<int>(
        host.call("pCreate", {folder.file("p.nc"), "clobber", 0, 8192}).at(1).toDouble());
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_FALSE(isOpen(registered));
    EXPECT_TRUE(isOpen(unknown));
    require(nc_close(unknown));
}

TEST_F(Unload, ForgetsAFileThatWasClosedOrAborted)
{
    closeFile(createFile("x.nc"));
    host.call("abort", {createFile("y.nc")});
    EXPECT_EQ(warningsOfUnload(), 0U);
}

TEST_F(Unload, StillHoldsAFileWhoseCloseOrAbortFailed)
{
    for (const char* operation : {"close", "abort"}) {
        const int ncid = createFile("x.nc");
        require(nc_close(ncid)); // without the module
        EXPECT_THAT(host.attempt(operation, {ncid}),
                    raises("libraryFailure", {operation, "NC_EBADID", "Not a valid ID"}));
        EXPECT_EQ(warningsOfUnload(), 1U) << operation;
        closeEverything(host);
    }
}

TEST_F(Unload, StillHoldsTheFileWhenCloseWasGivenAGroup)
{
    const int ncid = createFile("x.nc");
    const Value group = host.call("defGrp", {ncid, "g"})[0];
    EXPECT_THAT(host.attempt("close", {group}),
                raises("libraryFailure", {"close", "NC_EBADGRPID", "Bad group ID"}));
    EXPECT_TRUE(isOpen(ncid));
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_FALSE(isOpen(ncid));
}

TEST_F(Unload, StillHoldsTheFileWhenAGroupOfItWasAborted)
{
    const int ncid = createFile("x.nc");
    const Value group = host.call("defGrp", {ncid, "g"})[0];
    EXPECT_THAT(host.attempt("abort", {group}), succeeds()); // the library aborts the whole file
    EXPECT_FALSE(isOpen(ncid));
    EXPECT_EQ(warningsOfUnload(), 1U); // and closing it again fails quietly
}

TEST_F(Unload, NeverHoldsGroups)
{
    const int ncid = createFile("x.nc");
    host.call("defGrp", {ncid, "g"});
    host.call("inqNcid", {ncid, "g"});
    host.call("inqGrps", {ncid});
    closeFile(ncid);
    EXPECT_EQ(warningsOfUnload(), 0U);
}

TEST_F(Unload, HoldsNothingAfterAnOpeningThatFailed)
{
    closeFile(createFile("x.nc"));
    const Value missing = folder.file("missing.nc");
    EXPECT_FALSE(host.attempt("open", {missing, "nowrite"}).succeeded());
    EXPECT_FALSE(host.attempt("pOpen", {missing, "nowrite", 4096}).succeeded());
    EXPECT_FALSE(host.attempt("create", {folder.file("x.nc"), "noclobber"}).succeeded());
    EXPECT_EQ(warningsOfUnload(), 0U);
}

TEST_F(Unload, StillHoldsTheFileWhenThereWasNoMemoryForTheResult)
{
    // A script that received no identifier cannot close the file: the unload handler does.
    host.failAllocation(2); // after the name
    EXPECT_THAT(host.attempt("create", {folder.file("x.nc"), "netcdf4"}), raises("outOfMemory"));
    EXPECT_EQ(warningsOfUnload(), 1U);
    EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\n}\n");
}

} // namespace
} // namespace testsupport
