// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/file_locks.h"

#include "tests/messages/message_test.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>

namespace {

using namespace hosts::messages;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

// A process that holds a lock on a file during the object's lifetime.
class OtherProgram {
public:
    OtherProgram(const std::string& path, int kind)
    {
        int ready[2];
        if (pipe(ready) != 0)
            throw std::runtime_error("pipe");
        process_ = fork();
        if (process_ == 0) {
            const bool isLocked = flock(open(path.c_str(), O_RDONLY), kind) == 0;
            static_cast<void>(write(ready[1], isLocked ? "y" : "n", 1) + pause());
            _exit(0);
        }
        char answer = 'n';
        static_cast<void>(read(ready[0], &answer, 1));
        close(ready[0]);
        close(ready[1]);
        if (answer != 'y')
            throw std::runtime_error("the lock was refused");
    }
    ~OtherProgram()
    {
        kill(process_, SIGKILL);
        waitpid(process_, nullptr, 0);
    }
    OtherProgram(const OtherProgram&) = delete;
    OtherProgram& operator=(const OtherProgram&) = delete;

    pid_t process() const { return process_; }

private:
    pid_t process_ = -1;
};

class FileLock : public testsupport::MessageTest {
protected:
    std::string path() const { return folder.file("f.nc"); }
    std::string found(bool forWriting)
    {
        return findLock(LookedAtFile(path()), path(), forWriting);
    }

    void SetUp() override { testsupport::LibraryFile::create(path()).close(); }
};

TEST_F(FileLock, IsReportedWithItsHolder)
{
    EXPECT_THAT(found(true), IsEmpty());
    {
        const OtherProgram writer(path(), LOCK_EX);
        const std::string holder = "another program (process " + std::to_string(writer.process()) +
                                   ", \"message_tests\"), which writes it";
        EXPECT_THAT(found(false), HasSubstr(holder));
        EXPECT_THAT(found(true), HasSubstr(holder));
        EXPECT_THAT(messageOf("open", {path(), "nowrite"}),
                    AllOf(HasSubstr("open: NC_EHDFERR: HDF error\nThe file \"" + path() +
                                    "\" is locked by"),
                          HasSubstr(holder)));
        EXPECT_THAT(messageOf("create", {path(), "netcdf4"}), HasSubstr(holder));
    }
    EXPECT_THAT(found(true), IsEmpty());
}

TEST_F(FileLock, ConflictsOnlyWithAWriterWhenAReaderHoldsIt)
{
    const OtherProgram reader(path(), LOCK_SH);
    EXPECT_THAT(found(false), IsEmpty());
    EXPECT_THAT(found(true), HasSubstr("which reads it: wait until"));
    EXPECT_THAT(messageOf("open", {path(), "write"}), HasSubstr("which reads it"));
}

TEST_F(FileLock, IsNotReleasedByTheCheck)
{
    const int ncid = openFile("f.nc", "write");
    for (int i = 0; i < 3; ++i)
        EXPECT_THAT(found(true), HasSubstr("is locked by this session, which still writes it"));
    EXPECT_NE(flock(LookedAtFile(path()).descriptor(), LOCK_EX | LOCK_NB), 0); // still held
    host.call("close", {ncid});
    EXPECT_THAT(found(true), IsEmpty());
    EXPECT_EQ(flock(LookedAtFile(path()).descriptor(), LOCK_EX | LOCK_NB), 0);
}

TEST_F(FileLock, IsNotTriedWhereHdf5TakesNone)
{
    const OtherProgram writer(path(), LOCK_EX);
    for (const char* setting : {"FALSE", "0"}) {
        setenv("HDF5_USE_FILE_LOCKING", setting, 1);
        EXPECT_THAT(found(true), IsEmpty());
    }
    unsetenv("HDF5_USE_FILE_LOCKING");
    EXPECT_THAT(findLock(LookedAtFile(folder.file("missing")), "missing", true), IsEmpty());
}

TEST_F(FileLock, IsTheSessionsOwnWhenItHasTheFileOpen)
{
    EXPECT_THAT(findOpenHere(path(), true), IsEmpty());
    EXPECT_THAT(findOpenHere(folder.file("missing"), true), IsEmpty());
    const int ncid = openFile("f.nc");
    const std::string number = std::to_string(ncid);
    EXPECT_EQ(findOpenHere(path(), false),
              "The file \"" + path() + "\" is open in this session, for reading, as " + number +
                  ": close it first, with gridio(\"close\", " + number + ").");
    EXPECT_THAT(messageOf("open", {path(), "write"}),
                HasSubstr("is open in this session, for reading, as " + number));
    EXPECT_THAT(messageOf("create", {path(), "netcdf4"}), HasSubstr("is open in this session"));
    EXPECT_EQ(host.call("inqFormat", {ncid}).at(0).toText(), "FORMAT_NETCDF4");
}

TEST_F(FileLock, IsNotReportedForAFileThatMayBeOpenedTwice)
{
    const int ncid = openFile("f.nc", "write");
    EXPECT_THAT(findOpenHere(path(), false), IsEmpty());
    EXPECT_THAT(findOpenHere(path(), true), HasSubstr("for writing"));
    testsupport::LibraryFile::create(folder.file("classic.nc"), NC_CLOBBER).close();
    openFile("classic.nc");
    EXPECT_THAT(findOpenHere(folder.file("classic.nc"), true), IsEmpty());
    closeFile(ncid);
}

TEST(OpenFileCount, CountsFilesAndNotGroups)
{
    const int before = openFileCount();
    const testsupport::ScratchFolder folder;
    const auto file = testsupport::LibraryFile::create(folder.file("f.nc"));
    int group = 0;
    testsupport::require(nc_def_grp(file.ncid(), "g", &group));
    EXPECT_EQ(openFileCount(), before + 1);
}

} // namespace
