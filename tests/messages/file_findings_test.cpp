// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"
#include "tests/messages/stand_in_disk.h"

#include "open_file_registry.h"

#include <sys/resource.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <fstream>

namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class FileFinding : public testsupport::MessageTest {
protected:
    // A netCDF-4 file with the variable v of three doubles, closed.
    std::string makeNetcdf4()
    {
        const int ncid = createFile("four.nc");
        host.call("defVar", {ncid, "v", NC_DOUBLE, double(id("defDim", {ncid, "x", 3}))});
        host.call("putVarDouble", {ncid, 0, row({1, 2, 3})});
        closeFile(ncid);
        return folder.file("four.nc");
    }
};

TEST_F(FileFinding, KeepsTheStatusAndTheGeneralAdviceWhenNothingIsFound)
{
    closeFile(makeFile("short.nc"));
    std::filesystem::resize_file(folder.file("short.nc"), 60);
    EXPECT_THAT(messageOf("open", {folder.file("short.nc"), "nowrite"}),
                HasSubstr("the file may have been cut short."));
}

TEST_F(FileFinding, NamesWhatIsWrongWithThePath)
{
    EXPECT_EQ(messageOf("open", {folder.file("none/f.nc"), "nowrite"}),
              "open: 2: No such file or directory\nThere is no folder \"" + folder.file("none") +
                  "\": check the path.");
    for (const char* mode : {"clobber", "netcdf4"}) {
        EXPECT_THAT(messageOf("create", {folder.file("none/f.nc"), mode}),
                    EndsWith("\nThere is no folder \"" + folder.file("none") +
                             "\": check the path, or make the folder first."));
        EXPECT_THAT(messageOf("create", {folder.path(), mode}),
                    EndsWith("\" is a folder: add the name of a file."));
    }
    EXPECT_THAT(
        messageOf("pOpen", {folder.path(), "write", 0}),
        StartsWith("pOpen: NC_ENOTNC: Unknown file format\n\"" + folder.path() + "\" is a folder"));
    EXPECT_THAT(messageOf("pCreate", {folder.path(), "netcdf4", 0, 0}), HasSubstr("is a folder"));
}

TEST_F(FileFinding, SaysThatAFileWasCutShort)
{
    const std::string path = makeNetcdf4();
    std::filesystem::resize_file(path, 1000);
    EXPECT_THAT(messageOf("open", {path, "nowrite"}),
                StartsWith("open: NC_EHDFERR: HDF error\nThe file \"" + path +
                           "\" was cut short: it has 1000 bytes"));
}

TEST_F(FileFinding, SaysThatAFileWasOpenedForReading)
{
    makeNetcdf4();
    const int ncid = openFile("four.nc");
    const std::string reading =
        "The file \"" + folder.file("four.nc") +
        "\" was opened for reading: close it, and open it with the mode \"write\".";
    EXPECT_THAT(messageOf("putVarDouble", {ncid, 0, row({1, 2, 3})}),
                StartsWith("putVarDouble: NC_EHDFERR: HDF error\n" + reading + "\n"));
    EXPECT_THAT(messageOf("putAttText", {ncid, 0, "a", "b"}),
                StartsWith("putAttText: NC_EPERM: Write to read only\n" + reading + "\n"));
    const int classic = makeFile("classic.nc");
    closeFile(classic);
    const int reopened = openFile("classic.nc");
    EXPECT_THAT(messageOf("putVarDouble", {reopened, 1, 5}), HasSubstr("was opened for reading"));
    EXPECT_THAT(messageOf("copyAtt", {ncid, -1, "_NCProperties", reopened, 1}),
                HasSubstr("classic.nc\" was opened for reading"));
}

TEST_F(FileFinding, SaysThatTheFileMayNotGrow)
{
    const int ncid = createFile("large.nc");
    host.call("defVar", {ncid, "v", NC_DOUBLE, double(id("defDim", {ncid, "x", 100000}))});
    host.call("endDef", {ncid});
    std::signal(SIGXFSZ, SIG_IGN);
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit little = {10000, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const std::string found =
        messageOf("putVarDouble", {ncid, 0, Value::column(std::vector<double>(100000, 1))});
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_THAT(found, AllOf(StartsWith("putVarDouble: NC_EHDFERR: HDF error\n"),
                             HasSubstr("the system allows this session files of 10000")));
}

TEST_F(FileFinding, SaysThatNoDescriptorIsLeft)
{
    const std::string path = makeNetcdf4();
    // A sanitizer looks at an exception's type only once, and needs a descriptor for it.
    messageOf("open", {folder.file("missing"), "nowrite"});
    rlimit before = {};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none = {3, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const std::string opened = messageOf("open", {path, "nowrite"});
    const std::string created = messageOf("create", {folder.file("new.nc"), "netcdf4"});
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_THAT(opened, StartsWith("open: 24: Too many open files\nThe session has as many files "
                                   "open as the system allows it, 3"));
    EXPECT_THAT(created, AllOf(StartsWith("create: 13: Permission denied\nThe session has as many"),
                               HasSubstr("gridio_open_files()")));
}

TEST_F(FileFinding, SaysThatTheLibraryHoldsNoMoreFiles)
{
    const std::string path = makeNetcdf4();
    std::vector<int> open;
    int ncid = 0;
    while (nc_create(("in_memory" + std::to_string(open.size())).c_str(), NC_DISKLESS, &ncid) ==
           NC_NOERR)
        open.push_back(ncid);
    const std::string opened = messageOf("open", {path, "nowrite"});
    const std::string created = messageOf("create", {folder.file("f.nc"), "clobber"});
    for (const int each : open)
        testsupport::require(nc_close(each));
    for (const std::string& message : {opened, created})
        EXPECT_THAT(message,
                    AllOf(HasSubstr("NC_EBADID: Not a valid ID\nThe library has 65535 files open"),
                          HasSubstr("gridio_open_files()")));
}

TEST_F(FileFinding, DoesNotBlameTheDiskForOtherFailures)
{
    const int ncid = createFile("define.nc", "clobber");
    host.call("defVar", {ncid, "v", NC_INT, Value::empty()});
    testsupport::StandInDisk disk;
    disk.freeBlocks = 0;
    EXPECT_THAT(messageOf("putVarInt", {ncid, 0, Value::scalar<std::int32_t>(1)}),
                AllOf(HasSubstr("define mode"), Not(HasSubstr("full"))));
}

TEST_F(FileFinding, NamesTheFileThatExists)
{
    const std::string path = makeNetcdf4();
    EXPECT_THAT(messageOf("create", {path, "noclobber"}),
                HasSubstr("There is already a file \"" + path + "\", and the mode \"noclobber\""));
}

TEST_F(FileFinding, NamesTheFolderThatAZarrStoreWouldReplace)
{
    makeNetcdf4();
    EXPECT_THAT(messageOf("create", {"file://" + folder.path() + "#mode=zarr,file", "netcdf4"}),
                AllOf(StartsWith("create: NC_EEXIST: "),
                      HasSubstr("\nThe folder \"" + folder.path() + "\" holds something"),
                      Not(HasSubstr("clobber\", which empties"))));
}

TEST_F(FileFinding, SaysHowAZarrAddressEnds)
{
    for (const char* operation : {"open", "create"})
        EXPECT_THAT(messageOf(operation, {"file:///nowhere#mode=zarr", "netcdf4"}),
                    HasSubstr("write \"#mode=zarr,file\""));
}

TEST_F(FileFinding, SaysThatAFileWasAbandoned)
{
    const int ncid = createFile("lost.nc");
    host.call("defDim", {ncid, "x", 2});
    host.call("defDim", {ncid, "y", 3});
    host.call("defVar", {ncid, "v", NC_DOUBLE, Value::row<double>({0, 1})});
    host.call("endDef", {ncid});
    host.attempt("renameVar", {ncid, 0, "x"}); // after which HDF5 cannot close the file
    host.attempt("close", {ncid});
    EXPECT_THAT(messageOf("inq", {ncid}),
                AllOf(StartsWith("inq: NC_EBADID: Not a valid ID\nncid is "),
                      HasSubstr("abandoned when it could not be closed")));
}

TEST_F(FileFinding, ResolvesThePathOfAnOpenFile)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    const int ncid = id("create", {"relative.nc", "clobber"});
    EXPECT_THAT(messageOf("inqVarID", {ncid, "v"}),
                EndsWith("File \"" + folder.file("relative.nc") + "\" (classic)."));
    std::filesystem::create_directory("below");
    std::filesystem::current_path("below");
    EXPECT_THAT(messageOf("inqVarID", {ncid, "v"}), EndsWith("File \"relative.nc\" (classic)."));
    std::ofstream("relative.nc") << "another";
    EXPECT_THAT(messageOf("inqVarID", {ncid, "v"}), EndsWith("File \"relative.nc\" (classic)."));
    std::filesystem::current_path(before);
}

} // namespace
