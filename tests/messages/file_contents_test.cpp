// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/file_contents.h"

#include "tests/support/library_file.h"
#include "tests/support/scratch_folder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace {

using namespace hosts::messages;
using namespace std::string_literals;
using testing::HasSubstr;
using testing::IsEmpty;

class FileContents : public testing::Test {
protected:
    std::string write(const std::string& contents)
    {
        std::ofstream(folder.file("f.nc"), std::ios::binary) << contents;
        return folder.file("f.nc");
    }
    std::string foreign(const std::string& contents)
    {
        return findForeignContents(LookedAtFile(write(contents)), "f.nc");
    }
    std::string damage(const std::string& contents)
    {
        return findDamagedSuperblock(LookedAtFile(write(contents)), "f.nc");
    }

    // The bytes of a small netCDF-4 file.
    std::string netcdf4(int mode = NC_NETCDF4)
    {
        testsupport::LibraryFile::create(folder.file("whole.nc"), mode).close();
        std::ifstream file(folder.file("whole.nc"), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }

    testsupport::ScratchFolder folder;
};

TEST_F(FileContents, AreRecognisedAsForeign)
{
    EXPECT_THAT(foreign("\x1f\x8b\x08more"), HasSubstr("gzip has compressed: unpack it first."));
    EXPECT_THAT(foreign("PK\x03\x04more"), HasSubstr("a zip archive"));
    EXPECT_THAT(foreign("GRIB...."), HasSubstr("a GRIB file"));
    EXPECT_THAT(foreign("\x0e\x03\x13\x01"), HasSubstr("an HDF4 file"));
    EXPECT_THAT(foreign("<!DOCTYPE html>"), HasSubstr("a web page"));
    EXPECT_THAT(foreign("netcdf x {"), HasSubstr("ncgen"));
    EXPECT_EQ(foreign("hello\x1b"),
              "The file \"f.nc\" is not a netCDF file: it begins with \"hello\\x1B\".");
    EXPECT_EQ(foreign(""), "The file \"f.nc\" is empty.");
}

TEST_F(FileContents, AreRecognisedAsNetcdf)
{
    EXPECT_THAT(foreign("CDF\1"), IsEmpty());
    EXPECT_THAT(foreign("CDF\5"), IsEmpty());
    EXPECT_THAT(foreign(netcdf4()), IsEmpty());
    EXPECT_THAT(foreign(netcdf4().substr(0, 20)), IsEmpty());
    EXPECT_THAT(foreign(std::string(2048, 'u') + netcdf4()), IsEmpty());
}

TEST_F(FileContents, AreReportedAsShorterThanTheSuperblockSays)
{
    const std::string whole = netcdf4();
    EXPECT_THAT(damage(whole), IsEmpty());
    EXPECT_THAT(damage("CDF\1"), IsEmpty());
    EXPECT_THAT(damage(""), IsEmpty());
    for (const std::size_t size : {std::size_t{96}, whole.size() / 2, whole.size() - 1})
        EXPECT_THAT(damage(whole.substr(0, size)),
                    HasSubstr("was cut short: it has " + std::to_string(size) +
                              " bytes, and by its superblock " + std::to_string(whole.size())));
    EXPECT_THAT(damage(whole.substr(0, 20)),
                HasSubstr("it has 20 bytes, and its superblock cannot be read"));
}

TEST_F(FileContents, AreReadForEveryVersionOfTheSuperblock)
{
    const auto address = [](std::uint64_t number) {
        return std::string(reinterpret_cast<const char*>(&number), 8);
    };
    const std::string signature = "\x89HDF\r\n\x1a\n";
    const std::string addresses =
        address(0) + address(~std::uint64_t{0}) + address(777) + address(0);
    const std::string version0 =
        signature + "\0\0\0\0\0\x08\x08\0"s + std::string(8, '\0') + addresses;
    const std::string version1 =
        signature + "\1\0\0\0\0\x08\x08\0"s + std::string(12, '\0') + addresses;
    const std::string version2 = signature + "\2\x08\x08\0"s + addresses;
    const std::string version3 = signature + "\3\x08\x08\0"s + addresses;
    for (const std::string& version : {version0, version1, version2, version3}) {
        EXPECT_THAT(damage(version), HasSubstr("by its superblock 777."));
        EXPECT_THAT(damage(version + std::string(777, '\0')), IsEmpty());
    }
    EXPECT_THAT(damage(signature + "\3\x08\x08\5"s + addresses + std::string(777, '\0')),
                HasSubstr("marked as being written"));
    EXPECT_THAT(damage(signature + "\x09\x08\x08\0"s + addresses), HasSubstr("cannot be read"));
    EXPECT_THAT(damage(signature + "\2\xFF\x08\0"s + addresses), HasSubstr("cannot be read"));
}

TEST_F(FileContents, AreReadFromRegularFilesOnly)
{
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    for (const std::string& path : {folder.file("pipe"), folder.path(), "/dev/null"s})
        EXPECT_FALSE(LookedAtFile(path).isOpen()) << path;
    const LookedAtFile missing(folder.file("missing"));
    EXPECT_FALSE(missing.isOpen());
    EXPECT_EQ(missing.error(), ENOENT);
    EXPECT_THAT(missing.bytes(0, 10), IsEmpty());
}

} // namespace
