// SPDX-License-Identifier: BSD-3-Clause
// Checks that the file that a path names is opened or created, whatever characters it has.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/file_formats.h"
#include "tests/support/library_file.h"

#include <sys/stat.h>

#include <filesystem>
#include <fstream>
#include <set>

using namespace testsupport;
namespace fs = std::filesystem;

namespace {

// In its own working folder, since these paths are relative.
class FilePaths : public OperationTest {
protected:
    void SetUp() override
    {
        fs::create_directories(folder.file("here/a"));
        fs::create_directories(folder.file("here/c:"));
        fs::current_path(folder.file("here"));
    }
    void TearDown() override
    {
        fs::current_path(before_);
        OperationTest::TearDown();
    }

    // Every file below the working folder, by its relative path.
    static std::set<std::string> files()
    {
        std::set<std::string> found;
        for (const auto& entry : fs::recursive_directory_iterator("."))
            if (entry.is_regular_file())
                found.insert(entry.path().lexically_relative(".").string());
        return found;
    }

    // The length of the file's dimension, read by the library from a copy with a plain name: under
    // the original name it would open another file.
    static std::size_t lengthIn(const std::string& path)
    {
        fs::copy_file(path, "copy.nc", fs::copy_options::overwrite_existing);
        std::size_t length = 0;
        {
            const auto file = LibraryFile::open("copy.nc");
            require(nc_inq_dimlen(file.ncid(), 0, &length));
        }
        fs::remove("copy.nc");
        return length;
    }

private:
    fs::path before_ = fs::current_path();
};

const char* const paths[] = {
    " keep.nc", "\tkeep.nc", "\n\x01 keep.nc", "a\\b.nc",  "\\\\keep.nc", "\\keep.nc",   "c:/x.nc",
    "c:x.nc",   "./a\\b.nc", " a\\b.nc",       "keep.nc ", "a#mode=x.nc", "\xc3\xa9.nc",
};

TEST_F(FilePaths, NameTheFileThatIsCreatedAndOpened)
{
    for (const FileFormat& format : fileFormats) {
        for (const std::string path : paths) {
            SCOPED_TRACE(format.name + (": \"" + path + '"'));
            const std::set<std::string> expected = {fs::path(path).lexically_normal().string()};

            int ncid = id("create", {path, format.mode});
            host.call("defDim", {ncid, "x", 3});
            host.call("close", {ncid});
            ASSERT_EQ(files(), expected);
            EXPECT_EQ(lengthIn(path), 3U);

            ncid =
                static_cast<int>(host.call("pCreate", {path, format.mode, 0, 4096})[1].toDouble());
            host.call("defDim", {ncid, "x", 4});
            host.call("close", {ncid});
            ASSERT_EQ(files(), expected);
            EXPECT_EQ(lengthIn(path), 4U);

            ncid = id("open", {path, "write"});
            EXPECT_EQ(host.call("inqDim", {ncid, 0})[1], Value(4));
            host.call("redef", {ncid});
            host.call("defDim", {ncid, "y", 5});
            host.call("close", {ncid});
            ncid = static_cast<int>(host.call("pOpen", {path, "nowrite", 4096})[1].toDouble());
            EXPECT_EQ(host.call("inqDim", {ncid, 1})[1], Value(5));
            host.call("close", {ncid});
            ASSERT_EQ(files(), expected);
            fs::remove(path);
        }
    }
}

TEST_F(FilePaths, LeaveFilesOfSimilarNamesAlone)
{
    for (const char* bystander : {"keep.nc", "a/b.nc"})
        std::ofstream(bystander) << "not to be touched";
    for (const FileFormat& format : fileFormats) {
        for (const std::string path : {" keep.nc", "\\keep.nc", "a\\b.nc"}) {
            host.call("close", {number("create", {path, format.mode})});
            for (const char* bystander : {"keep.nc", "a/b.nc"}) {
                EXPECT_EQ(fs::file_size(bystander), 17U) << format.name << ": " << path;
                EXPECT_THAT(attempt("open", {bystander, "nowrite"}), failsWith("open", NC_ENOTNC));
            }
            fs::remove(path);
        }
    }
}

TEST_F(FilePaths, FailWithTheUsualStatusDespiteABackslash)
{
    for (const FileFormat& format : fileFormats) {
        host.call("close", {number("create", {"a\\b.nc", format.mode})});
        EXPECT_THAT(attempt("create", {"a\\b.nc", format.mode | NC_NOCLOBBER}),
                    failsWith("create", NC_EEXIST));
        host.call("close", {number("create", {"a\\b.nc", format.mode})});
        fs::remove("a\\b.nc");
        EXPECT_THAT(attempt("open", {"a\\b.nc", "write"}), failsWith("open", 2));
        host.call("close", {number("create", {"a\\b.nc", format.mode | NC_NOCLOBBER})});
        EXPECT_EQ(files(), std::set<std::string>{"a\\b.nc"});
        EXPECT_EQ(attempt("create", {"missing/a\\b.nc", format.mode}).succeeded(), false);
    }
    const int usual = id("setDefaultFormat", {NC_FORMAT_NETCDF4});
    host.call("close", {number("create", {"a\\b.nc", "clobber"})});
    EXPECT_EQ(id("setDefaultFormat", {usual}), NC_FORMAT_NETCDF4);
    EXPECT_EQ(files(), std::set<std::string>{"a\\b.nc"});
    fs::rename("a\\b.nc", "plain.nc");
    EXPECT_EQ(ncdumpKind("plain.nc"), "netCDF-4");
}

TEST_F(FilePaths, LeaveNothingOnTheDiskForFilesInMemory)
{
    host.call("close", {number("create", {"a\\b.nc", NC_NETCDF4 | NC_DISKLESS})});
    EXPECT_EQ(files(), std::set<std::string>());
    host.call("close", {number("create", {"a\\b.nc", NC_NETCDF4 | NC_DISKLESS | NC_PERSIST})});
    EXPECT_EQ(files(), std::set<std::string>{"a\\b.nc"});
}

TEST_F(FilePaths, RefusePipesAndDevicesAtOnce)
{
    ASSERT_EQ(mkfifo("pipe", 0600), 0);
    for (const char* path : {"pipe", "/dev/zero", "/dev/null"}) {
        EXPECT_THAT(attempt("open", {path, "nowrite"}), failsWith("open", NC_ENOTNC)) << path;
        EXPECT_THAT(attempt("pOpen", {path, "write", 4096}), failsWith("pOpen", NC_ENOTNC)) << path;
    }
}

class ZarrFolders : public FilePaths {
protected:
    std::string address() const
    {
        return "file://" + folder.file("here/store") + "#mode=zarr,file";
    }
};

TEST_F(ZarrFolders, AreNotReplacedWhenTheyHoldAnythingElse)
{
    fs::create_directories("store/data");
    std::ofstream("store/data/results.txt") << "of a year";
    for (const Value& mode : {Value("netcdf4"), Value(NC_NETCDF4 | NC_NOCLOBBER)}) {
        for (const std::string& place :
             {address(), std::string("file://store#mode=nczarr,file"),
              std::string(" [mode=zarr,file]file://./store"), std::string("file://store/#zarr")}) {
            EXPECT_THAT(attempt("create", {place, mode}), failsWith("create", NC_EEXIST)) << place;
            EXPECT_THAT(attempt("pCreate", {place, mode, 0, 4096}),
                        failsWith("pCreate", NC_EEXIST));
        }
    }
    EXPECT_EQ(files(), std::set<std::string>{"store/data/results.txt"});
}

TEST_F(ZarrFolders, AreRefusedAtAddressesThatFreezeTheLibrary)
{
    const std::string place = "file://" + folder.file("here/store");
    for (const char* parameters : {"#mode=zarr", "#mode=file,zarr", "#x=1&mode=ZARR",
                                   "#mode=xarray", "#mode=zarr,noxarray&mode=file"}) {
        const std::string address = place + parameters;
        EXPECT_THAT(attempt("open", {address, "nowrite"}), failsWith("open", NC_EINVAL)) << address;
        EXPECT_THAT(attempt("pOpen", {address, "nowrite", 0}), failsWith("pOpen", NC_EINVAL));
        EXPECT_THAT(attempt("create", {address, "netcdf4"}), failsWith("create", NC_EINVAL));
        EXPECT_THAT(attempt("pCreate", {address, "netcdf4", 0, 0}),
                    failsWith("pCreate", NC_EINVAL));
    }
    EXPECT_THAT(attempt("open", {"[mode=zarr]" + place, "nowrite"}), failsWith("open", NC_EINVAL));
    for (const char* parameters :
         {"#mode=zarr,file", "#mode=nczarr", "#zarr", "#mode=zarr,", "#mode=noxarray,file"}) {
        host.call("close", {number("create", {place + parameters, "netcdf4"})});
        EXPECT_EQ(files().count("store/.zgroup"), 1U) << parameters;
        fs::remove_all("store");
    }
}

TEST_F(ZarrFolders, BecomeStoresWhenEmptyMissingOrStores)
{
    fs::create_directories("store");
    host.call("close", {number("create", {address(), "netcdf4"})}); // empty
    EXPECT_EQ(files().count("store/.zgroup"), 1U);
    EXPECT_THAT(attempt("create", {address(), NC_NETCDF4 | NC_NOCLOBBER}),
                failsWith("create", NC_EEXIST));
    host.call("close", {number("create", {address(), "netcdf4"})}); // a store
    fs::remove_all("store");
    host.call("close", {number("create", {address(), "netcdf4"})}); // missing
    EXPECT_EQ(files().count("store/.zgroup"), 1U);
}

} // namespace
