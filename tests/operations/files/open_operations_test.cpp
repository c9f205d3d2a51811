// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <utility>

namespace testsupport {
namespace {

using standalone::Value;

class Opening : public ModuleTest {
protected:
    // Whether a definition can be written through an identifier.
    bool isWritable(int ncid)
    {
        return nc_put_att_int(ncid, NC_GLOBAL, "a", NC_INT, 0, nullptr) == 0;
    }

    void makeClassicFile(const std::string& name) { closeFile(createFile(name, "clobber")); }
};

TEST_F(Opening, CreateMakesTheFormatThatTheModeNames)
{
    const std::pair<Value, const char*> modes[] = {
        {"clobber", "classic"},
        {"noclobber", "classic"},
        {"nowrite", "classic"},
        {"write", "classic"},
        {"share", "classic"},
        {"64bit_offset", "64-bit offset"},
        {"NC_64BIT_OFFSET", "64-bit offset"},
        {"netcdf4", "netCDF-4"},
        {"NC_NETCDF4", "netCDF-4"},
        {4096, "netCDF-4"},
        {Value::scalar<std::int32_t>(4352), "netCDF-4 classic model"}, // no word says that
        {4352.9, "netCDF-4 classic model"},
        {0, "classic"},
        {512, "64-bit offset"},
        {32, "cdf5"},
        {Value::row<double>({4096, 512}), "netCDF-4"}, // the second element is ignored
    };
    int number = 0;
    for (const auto& [mode, kind] : modes) {
        const std::string name = "f" + std::to_string(number++) + ".nc";
        const int ncid = createFile(name, mode);
        host.call("defDim", {ncid, "x", 3}); // in define mode
        closeFile(ncid);
        EXPECT_EQ(ncdumpKind(folder.file(name)), kind) << mode;
        EXPECT_EQ(ncdump(folder.file(name)), "netcdf test {\ndimensions:\n\tx = 3 ;\n}\n") << mode;
    }
}

TEST_F(Opening, OpenTakesTheModeAsAWordOrANumber)
{
    closeFile(createFile("x.nc"));
    const std::pair<Value, bool> modes[] = {
        {"NC_WRITE", true},
        {"Write", true},
        {"nc_write", true},
        {"NOWRITE", false},
        {"nc_nowrite", false},
        {"clobber", false}, // 0, as "nowrite" is
        {"share", false},
        {0, false},
        {1, true},
        {1.9, true},
        {-0.5, false},
        {Value::scalar<std::int32_t>(1), true},
        {Value::row<double>({1, 4}), true},
        {Value::row<std::int32_t>({0, 1}), false},
        {2049, true}, // share and write
    };
    for (const auto& [mode, writable] : modes) {
        const int ncid = openFile("x.nc", mode);
        EXPECT_EQ(isWritable(ncid), writable) << mode;
        closeFile(ncid);
    }
}

TEST_F(Opening, GivesTheLibrarysIdentifierAsADouble)
{
    const Value ncid = host.call("create", {folder.file("x.nc"), "netcdf4"}).at(0);
    std::size_t length = 0;
    require(nc_inq_path(static_cast<int>(ncid.toDouble()), &length, nullptr));
    EXPECT_EQ(length, folder.file("x.nc").size());
    EXPECT_EQ(host.call("open", {folder.file("x.nc"), "nowrite"}).size(), 1U);
}

TEST_F(Opening, ReportsTheSystemsErrorOfAMissingFile)
{
    const Value missing = folder.file("missing.nc");
    EXPECT_THAT(host.attempt("open", {missing, "nowrite"}),
                raises("libraryFailure", {"open", "2", "No such file or directory"}));
    EXPECT_THAT(host.attempt("pOpen", {missing, "nowrite", 4096}),
                raises("libraryFailure", {"pOpen", "2", "No such file or directory"}));
    const Value noFolder = folder.file("missing/x.nc");
    EXPECT_THAT(host.attempt("create", {noFolder, "clobber"}),
                raises("libraryFailure", {"create", "2", "No such file or directory"}));
    EXPECT_THAT(host.attempt("create", {noFolder, "netcdf4"}),
                raises("libraryFailure", {"create", "13", "Permission denied"}));
    EXPECT_THAT(host.attempt("pCreate", {noFolder, "clobber", 0, 8192}),
                raises("libraryFailure", {"pCreate", "2", "No such file or directory"}));
}

TEST_F(Opening, ReportsTheLibrarysErrorOfAFileThatIsNone)
{
    std::ofstream(folder.file("text")) << "this is no such file";
    EXPECT_THAT(host.attempt("open", {folder.file("text"), "nowrite"}),
                raises("libraryFailure", {"open", "NC_ENOTNC", "Unknown file format"}));
    EXPECT_THAT(host.attempt("open", {"", "nowrite"}),
                raises("librarydapFailure", {"open", "NC_EDAPURL", "Malformed URL"}));
}

TEST_F(Opening, LeavesItToTheLibraryWhetherAModeMakesSense)
{
    makeClassicFile("x.nc");
    EXPECT_THAT(host.attempt("create", {folder.file("x.nc"), "noclobber"}),
                raises("libraryFailure", {"create", "NC_EEXIST", "File exists && NC_NOCLOBBER"}));
    EXPECT_THAT(host.attempt("create", {folder.file("y.nc"), 4608}),
                raises("libraryFailure", {"create", "NC_EINVAL", "Invalid argument"}));
    EXPECT_FALSE(std::filesystem::exists(folder.file("y.nc")));
}

TEST_F(Opening, DeliberatelyPassesAModeOutsideIntOnAsTheLowestInt)
{
    makeClassicFile("x.nc");
    int ncid = 0;
    require(nc_open(folder.file("x.nc").c_str(), std::numeric_limits<int>::min(), &ncid));
    const bool writable = isWritable(ncid);
    require(nc_close(ncid));
    for (const double mode : {1e10, -1e10, std::numeric_limits<double>::quiet_NaN()}) {
        ncid = openFile("x.nc", mode);
        EXPECT_EQ(isWritable(ncid), writable) << mode;
        closeFile(ncid);
    }
}

TEST_F(Opening, RefusesABadModeBeforeAFileIsTouched)
{
    const Value file = folder.file("x.nc");
    const std::pair<Value, testing::Matcher<const standalone::Outcome&>> modes[] = {
        {"", raises("argumentIsEmptySet", {"MODE"})},
        {Value::empty(), raises("argumentIsEmptySet", {"MODE"})},
        {Value::scalar(1.0F), raises("badModeDatatype")},
        {Value::scalar<std::uint8_t>(1), raises("badModeDatatype")},
        {Value::scalar<std::int64_t>(1), raises("badModeDatatype")},
        {true, raises("badModeDatatype")},
        {"nc_write|nc_share", raises("unrecognizedFileMode", {"NC_WRITE|NC_SHARE"})},
        {"Foo_Bar", raises("unrecognizedFileMode", {"FOO_BAR"})},
    };
    for (const auto& [mode, raised] : modes) {
        EXPECT_THAT(host.attempt("open", {file, mode}), raised) << mode;
        EXPECT_THAT(host.attempt("create", {file, mode}), raised) << mode;
        EXPECT_THAT(host.attempt("pOpen", {file, mode, 1}), raised) << mode;
        EXPECT_THAT(host.attempt("pCreate", {file, mode, 1, 1}), raised) << mode;
    }
    EXPECT_FALSE(std::filesystem::exists(folder.file("x.nc")));
}

TEST_F(Opening, RefusesABadSizeBeforeAFileIsTouched)
{
    const Value file = folder.file("x.nc");
    for (const double size : {-1.0, 18446744073709551616.0}) {
        EXPECT_THAT(host.attempt("pCreate", {file, "clobber", size, 1}),
                    raises("argumentOutOfBounds"));
        EXPECT_THAT(host.attempt("pCreate", {file, "clobber", 1, size}),
                    raises("argumentOutOfBounds"));
        EXPECT_THAT(host.attempt("pOpen", {file, "write", size}), raises("argumentOutOfBounds"));
    }
    EXPECT_THAT(host.attempt("pCreate", {file, "clobber", 1, "1"}),
                raises("badScalarArgument", {"chunksize", "numeric"}));
    EXPECT_FALSE(std::filesystem::exists(folder.file("x.nc")));
}

TEST_F(Opening, POpenGivesTheSizeThatTheLibraryChoseBeforeTheIdentifier)
{
    makeClassicFile("x.nc");
    for (const double hint : {0.0, 1.0, 1000.0, 8192.0, 1048576.0}) {
        std::size_t expected = static_cast<std::size_t>(hint);
        int other = 0;
        require(nc__open(folder.file("x.nc").c_str(), NC_NOWRITE, &expected, &other));
        require(nc_close(other));

        const auto results = host.call("pOpen", {folder.file("x.nc"), "nowrite", hint});
        ASSERT_EQ(results.size(), 2U);
        EXPECT_EQ(results[0], Value::number(static_cast<double>(expected))) << hint;
        EXPECT_EQ(host.call("inqFormat", {results[1]})[0], Value("FORMAT_CLASSIC"));
        host.call("close", {results[1]});
    }
}

TEST_F(Opening, PCreateGivesTheSizeThatTheLibraryChoseBeforeTheIdentifier)
{
    for (const double size : {0.0, 100.0, 4096.0, 1048576.0}) {
        std::size_t expected = static_cast<std::size_t>(size);
        int other = 0;
        require(nc__create(folder.file("y.nc").c_str(), NC_CLOBBER, 1, &expected, &other));
        require(nc_close(other));

        const auto results = host.call("pCreate", {folder.file("x.nc"), "clobber", 1, size});
        ASSERT_EQ(results.size(), 2U);
        EXPECT_EQ(results[0], Value::number(static_cast<double>(expected))) << size;
        host.call("defDim", {results[1], "x", 7}); // in define mode
        host.call("close", {results[1]});
        EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\ndimensions:\n\tx = 7 ;\n}\n");
    }
}

TEST_F(Opening, PCreatePassesTheInitialSizeOn)
{
    const auto results = host.call("pCreate", {folder.file("x.nc"), "clobber", 65536, 4096});
    host.call("endDef", {results.at(1)});
    const auto sizeOpen = std::filesystem::file_size(folder.file("x.nc"));
    host.call("close", {results.at(1)});

    std::size_t chunk = 4096;
    int other = 0;
    require(nc__create(folder.file("y.nc").c_str(), NC_CLOBBER, 65536, &chunk, &other));
    require(nc_enddef(other));
    EXPECT_EQ(sizeOpen, std::filesystem::file_size(folder.file("y.nc")));
    require(nc_close(other));
}

TEST_F(Opening, PassesTheFileNameOnInTheNarrowEncodingAndUnchanged)
{
    for (const char16_t* name :
         {u"gr\u00F6\u00DFe.nc", u"\u03B1\u03B2 \U0001F30D.nc", u"a b'c\".nc"}) {
        const Value file =
            Value::text(std::u16string(folder.path().begin(), folder.path().end()) + u"/" + name);
        host.call("close", {host.call("create", {file, "netcdf4"})[0]});
        EXPECT_TRUE(std::filesystem::exists(std::filesystem::path(file.toUtf16()))) << file;
        host.call("close", {host.call("open", {file, "nowrite"})[0]});
    }
    EXPECT_THAT(host.attempt("open", {"~/no/such/file.nc", "nowrite"}),
                raises("libraryFailure", {"open", "2", "No such file or directory"}));
}

TEST_F(Opening, TakesOnlyTextForTheFileName)
{
    for (const Value& file : {Value(1), Value::empty(), Value::cell({1, 1}, {"x.nc"}), Value(true)})
        EXPECT_THAT(host.attempt("open", {file, "nowrite"}),
                    raises("argumentWasNotChar", {"file"}));
}

} // namespace
} // namespace testsupport
