// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/path_findings.h"

#include "tests/messages/privileges.h"
#include "tests/messages/stand_in_disk.h"
#include "tests/support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>

namespace {

using namespace hosts::messages;
using testing::AllOf;
using testing::HasSubstr;
using testing::IsEmpty;

class PathFinding : public testing::Test {
protected:
    std::string makeFile(const std::string& name, const std::string& contents = "CDF\1contents")
    {
        std::ofstream(folder.file(name)) << contents;
        return folder.file(name);
    }

    testsupport::ScratchFolder folder;
};

TEST_F(PathFinding, NamesTheFolderThatIsMissing)
{
    const std::string missing = "There is no folder \"" + folder.file("a") + "\": check the path";
    for (const Purpose purpose : {Purpose::reading, Purpose::writing, Purpose::creating}) {
        const std::string expected =
            missing + (purpose == Purpose::creating ? ", or make the folder first." : ".");
        EXPECT_EQ(findPathProblem(folder.file("a/f.nc"), purpose), expected);
        EXPECT_EQ(findPathProblem(folder.file("a/b/c/f.nc"), purpose), expected);
        EXPECT_EQ(findPathProblem(makeFile("file") + "/f.nc", purpose),
                  "\"" + folder.file("file") + "\" is a file, not a folder: check the path.");
    }
}

TEST_F(PathFinding, NamesTheFileThatIsMissingAndANearOne)
{
    makeFile("field.nc");
    EXPECT_EQ(findPathProblem(folder.file("feild.nc"), Purpose::reading),
              "There is no file \"feild.nc\" in the folder \"" + folder.path() +
                  "\": check the path. Did you mean \"field.nc\"?");
    EXPECT_EQ(findPathProblem(folder.file("other"), Purpose::writing),
              "There is no file \"other\" in the folder \"" + folder.path() +
                  "\": check the path.");
}

TEST_F(PathFinding, ResolvesARelativePath)
{
    const std::filesystem::path before = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_EQ(findPathProblem("f.nc", Purpose::reading),
              "There is no file \"f.nc\" in the folder \"" + folder.path() + "\": check the path.");
    EXPECT_EQ(findPathProblem("a/f.nc", Purpose::reading),
              "There is no folder \"" + folder.file("a") + "\": check the path.");
    EXPECT_EQ(findPathProblem(".", Purpose::reading),
              "\"" + folder.path() + "\" is a folder: add the name of a file.");
    EXPECT_EQ(resolvedPath("x/y"), "x/y");
    EXPECT_EQ(resolvedPath("x"), folder.file("x"));
    EXPECT_EQ(resolvedPath("/"), "/");
    EXPECT_EQ(resolvedPath("/x"), "/x");
    std::filesystem::current_path(before);
}

TEST_F(PathFinding, NamesPathsThatAreNotFiles)
{
    std::filesystem::create_directory(folder.file("folder"));
    EXPECT_THAT(findPathProblem(folder.file("folder/"), Purpose::creating),
                HasSubstr("/folder\" is a folder: add the name"));
    std::ofstream(folder.file("folder/.zgroup")) << "{}";
    EXPECT_THAT(findPathProblem(folder.file("folder"), Purpose::reading),
                HasSubstr("is a Zarr store: open it by its address, \"file://" +
                          folder.file("folder") + "#mode=nczarr,file\""));
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_THAT(findPathProblem(folder.file("pipe"), Purpose::reading),
                HasSubstr("/pipe\" is a pipe, not a file."));
    EXPECT_THAT(findPathProblem("/dev/null", Purpose::creating),
                HasSubstr("is a device or socket, not a file."));
    std::filesystem::create_symlink("nowhere", folder.file("link"));
    EXPECT_THAT(findPathProblem(folder.file("link"), Purpose::reading),
                HasSubstr("/link\" is a link to \"nowhere\", which does not exist."));
    std::filesystem::create_symlink("loop", folder.file("loop"));
    EXPECT_THAT(findPathProblem(folder.file("loop"), Purpose::reading), IsEmpty());
}

TEST_F(PathFinding, NamesTheMissingPermission)
{
    using std::filesystem::perms;
    const std::string path = makeFile("f.nc");
    const auto found = [](const std::string& where, Purpose purpose) {
        const testsupport::OrdinaryUser user;
        return findPathProblem(where, purpose);
    };
    permissions(std::filesystem::path(folder.path()), perms(0555));
    permissions(std::filesystem::path(path), perms(0));
    EXPECT_THAT(found(path, Purpose::reading),
                AllOf(HasSubstr("You may not read the file \"" + path),
                      HasSubstr("its permissions are 000")));
    permissions(std::filesystem::path(path), perms(0444));
    EXPECT_THAT(found(path, Purpose::reading), IsEmpty());
    EXPECT_THAT(found(path, Purpose::writing), HasSubstr("You may not write the file \"" + path));
    EXPECT_THAT(found(path, Purpose::creating), HasSubstr("You may not write the file"));
    EXPECT_THAT(found(folder.file("new.nc"), Purpose::creating),
                HasSubstr("You may not write into the folder \"" + folder.path()));
    permissions(std::filesystem::path(folder.path()), perms(0));
    EXPECT_THAT(found(path, Purpose::reading),
                HasSubstr("You have no permission to search the folder \"" + folder.path()));
    EXPECT_THAT(found(folder.file("a/b.nc"), Purpose::reading),
                HasSubstr("You have no permission to search the folder \"" + folder.path()));
    permissions(std::filesystem::path(folder.path()), perms(0755));
}

TEST_F(PathFinding, IsSilentAboutAddressesAndGoodFiles)
{
    EXPECT_THAT(findPathProblem("http://127.0.0.1:1/x", Purpose::reading), IsEmpty());
    EXPECT_THAT(findPathProblem("file:///nowhere#mode=nczarr", Purpose::reading), IsEmpty());
    EXPECT_THAT(findPathProblem(makeFile("f.nc"), Purpose::reading), IsEmpty());
    EXPECT_THAT(findPathProblem(folder.file("new.nc"), Purpose::creating), IsEmpty());
    EXPECT_EQ(findPathProblem("", Purpose::reading), "The name of the file is empty.");
    EXPECT_THAT(findPathProblem(folder.file(std::string(300, 'a')), Purpose::reading),
                HasSubstr("too long: it has 300 bytes"));
    std::string deep;
    while (deep.size() < 60000)
        deep += "a/";
    EXPECT_EQ(findPathProblem(deep, Purpose::reading),
              "The path is too long: it has 60000 bytes. Choose a shorter one.");
    EXPECT_THAT(findPathProblem(deep.substr(0, 4000) + "f.nc", Purpose::creating),
                HasSubstr("There is no folder"));
}

TEST_F(PathFinding, SaysThatNoDescriptorIsLeft)
{
    EXPECT_THAT(findNoDescriptors(), IsEmpty());
    rlimit before = {};
    getrlimit(RLIMIT_NOFILE, &before);
    const rlimit none = {3, before.rlim_max};
    setrlimit(RLIMIT_NOFILE, &none);
    const std::string found = findPathProblem(folder.file("f.nc"), Purpose::creating);
    setrlimit(RLIMIT_NOFILE, &before);
    EXPECT_THAT(found,
                AllOf(HasSubstr("as many files open as the system allows it, 3 (\"ulimit -n\")"),
                      HasSubstr("gridio_open_files()")));
}

TEST_F(PathFinding, SaysThatAFileMayNotGrow)
{
    const std::string path = makeFile("f.nc");
    EXPECT_THAT(findNoSpace(path), IsEmpty());
    rlimit before = {};
    getrlimit(RLIMIT_FSIZE, &before);
    const rlimit little = {65536, before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &little);
    const std::string found = findNoSpace(path);
    setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_THAT(found, HasSubstr("allows this session files of 65536 (\"ulimit -f\")"));
}

TEST_F(PathFinding, SaysThatTheDiskIsFull)
{
    const std::string path = makeFile("f.nc");
    testsupport::StandInDisk disk;
    disk.freeBlocks = 3;
    EXPECT_EQ(findNoSpace(path), "The disk of \"" + path + "\" is full: 12288 bytes are left.");
    EXPECT_THAT(findPathProblem(path, Purpose::creating), HasSubstr("is full"));
    EXPECT_THAT(findPathProblem(folder.file("new.nc"), Purpose::creating),
                HasSubstr("\"" + folder.path() + "\" is full"));
    disk.freeBlocks = 100000;
    disk.freeFiles = 0;
    EXPECT_THAT(findNoSpace(path), HasSubstr("has no space for another file"));
    disk.freeFiles = 5;
    EXPECT_THAT(findNoSpace(path), IsEmpty());
}

TEST(NoSpace, IsNotFoundWhereThereAreNoBlocksAtAll)
{
    EXPECT_THAT(findNoSpace("/proc"), IsEmpty());
    EXPECT_THAT(findNoSpace("/nowhere/at/all"), IsEmpty());
}

} // namespace
