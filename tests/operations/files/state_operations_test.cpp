// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"
#include "tests/support/module_test.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <limits>
#include <set>
#include <utility>

namespace testsupport {
namespace {

using standalone::Value;
using testing::HasSubstr;

// The default format belongs to the whole library: each test starts and ends with the classic one.
class State : public ModuleTest {
protected:
    State() { require(nc_set_default_format(NC_FORMAT_CLASSIC, nullptr)); }
    ~State() override { require(nc_set_default_format(NC_FORMAT_CLASSIC, nullptr)); }

    std::string bytesOf(const std::string& name)
    {
        std::ifstream file(folder.file(name), std::ios::binary);
        return {std::istreambuf_iterator<char>(file), {}};
    }
};

TEST_F(State, CloseEndsTheIdentifierAndCompletesTheFile)
{
    const int ncid = createFile("x.nc", "clobber");
    host.call("defDim", {ncid, "x", 2});
    EXPECT_TRUE(host.call("close", {ncid}).empty());
    EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\ndimensions:\n\tx = 2 ;\n}\n");
    EXPECT_THAT(host.attempt("close", {ncid}),
                raises("libraryFailure", {"close", "NC_EBADID", "Not a valid ID"}));
}

TEST_F(State, AbortDropsAFileThatWasBeingDefined)
{
    const int ncid = createFile("x.nc", "clobber");
    EXPECT_TRUE(host.call("abort", {ncid}).empty());
    EXPECT_FALSE(std::filesystem::exists(folder.file("x.nc")));
    EXPECT_THAT(host.attempt("abort", {ncid}),
                raises("libraryFailure", {"abort", "NC_EBADID", "Not a valid ID"}));
}

TEST_F(State, AbortDiscardsTheDefinitionsSinceRedef)
{
    int ncid = createFile("x.nc", "clobber");
    host.call("defDim", {ncid, "x", 2});
    closeFile(ncid);
    ncid = openFile("x.nc", "write");
    host.call("redef", {ncid});
    host.call("defDim", {ncid, "y", 3});
    host.call("abort", {ncid});
    EXPECT_EQ(ncdump(folder.file("x.nc")), "netcdf test {\ndimensions:\n\tx = 2 ;\n}\n");
}

TEST_F(State, SyncWritesWhatIsBuffered)
{
    const int ncid = createFile("x.nc", "clobber");
    const Value x = host.call("defDim", {ncid, "x", 0})[0];
    const Value v = host.call("defVar", {ncid, "v", NC_INT, x})[0];
    EXPECT_THAT(
        host.attempt("sync", {ncid}),
        raises("libraryFailure", {"sync", "NC_EINDEFINE", "Operation not allowed in define mode"}));
    host.call("endDef", {ncid});
    host.call("putVaraInt", {ncid, v, 0, 2, Value::row<std::int32_t>({7, 8})});
    EXPECT_THAT(ncdump(folder.file("x.nc")), HasSubstr("(0 currently)"));
    EXPECT_TRUE(host.call("sync", {ncid}).empty());
    EXPECT_THAT(ncdump(folder.file("x.nc")), HasSubstr(" v = 7, 8 ;"));
}

TEST_F(State, RedefAndEndDefMoveBetweenTheModes)
{
    const int ncid = createFile("x.nc", "clobber");
    EXPECT_THAT(host.attempt("redef", {ncid}),
                raises("libraryFailure",
                       {"redef", "NC_EINDEFINE", "Operation not allowed in define mode"}));
    EXPECT_TRUE(host.call("endDef", {ncid}).empty());
    EXPECT_THAT(host.attempt("endDef", {ncid}),
                raises("libraryFailure",
                       {"endDef", "NC_ENOTINDEFINE", "Operation not allowed in data mode"}));
    EXPECT_THAT(host.attempt("defDim", {ncid, "x", 2}),
                raises("libraryFailure",
                       {"defDim", "NC_ENOTINDEFINE", "Operation not allowed in data mode"}));
    EXPECT_TRUE(host.call("redef", {ncid}).empty());
    EXPECT_THAT(host.attempt("defDim", {ncid, "x", 2}), succeeds());
}

TEST_F(State, ReportsTheLibraryOnAReadOnlyFile)
{
    closeFile(createFile("x.nc", "clobber"));
    const int ncid = openFile("x.nc");
    EXPECT_THAT(host.attempt("redef", {ncid}),
                raises("libraryFailure", {"redef", "NC_EPERM", "Write to read only"}));
    EXPECT_THAT(host.attempt("setFill", {ncid, NC_NOFILL}),
                raises("libraryFailure", {"setFill", "NC_EPERM", "Write to read only"}));
}

TEST_F(State, NamesEachOperationInTheFailureOfABadIdentifier)
{
    for (const char* name : {"close", "abort", "sync", "redef", "endDef"})
        EXPECT_THAT(host.attempt(name, {-1}),
                    raises("libraryFailure", {name, "NC_EBADID", "Not a valid ID"}));
    EXPECT_THAT(host.attempt("pEndDef", {-1, 0, 4, 0, 4}),
                raises("libraryFailure", {"pEndDef", "NC_EBADID", "Not a valid ID"}));
    EXPECT_THAT(host.attempt("setFill", {-1, 0}),
                raises("libraryFailure", {"setFill", "NC_EBADID", "Not a valid ID"}));
}

struct Tuning {
    std::size_t headerFree;
    std::size_t variableAlign;
    std::size_t variableFree;
    std::size_t recordAlign;
};

// A file whose layout shows all four values: one fixed-size variable and one over records.
template <class EndDef> void makeTuned(const std::string& path, const EndDef& endDef)
{
    auto file = LibraryFile::create(path, NC_CLOBBER);
    int dims[2] = {};
    int fixed = 0;
    int records = 0;
    require(nc_def_dim(file.ncid(), "t", NC_UNLIMITED, &dims[0]));
    require(nc_def_dim(file.ncid(), "x", 3, &dims[1]));
    require(nc_def_var(file.ncid(), "fixed", NC_BYTE, 1, &dims[1], &fixed));
    require(nc_def_var(file.ncid(), "records", NC_INT, 1, &dims[0], &records));
    endDef(file.ncid());
    const int values[] = {1, 2};
    const std::size_t zero = 0;
    const std::size_t two = 2;
    const int fixedValues[] = {5, 6, 7};
    require(nc_put_var_int(file.ncid(), fixed, fixedValues));
    require(nc_put_vara_int(file.ncid(), records, &zero, &two, values));
    file.close();
}

TEST_F(State, PEndDefPassesItsFourValuesInTheOrderInWhichTheyCome)
{
    const Tuning tunings[] = {{0, 4, 0, 4},          {1000, 4, 0, 4}, {0, 512, 0, 4},
                              {0, 4, 3000, 4},       {0, 4, 0, 1024}, {1000, 256, 2000, 512},
                              {2000, 512, 1000, 256}};
    std::set<std::string> layouts;
    for (const Tuning& t : tunings) {
        makeTuned(folder.file("module.nc"), [&](int ncid) {
            EXPECT_TRUE(host.call("pEndDef", {ncid, t.headerFree, t.variableAlign, t.variableFree,
                                              t.recordAlign})
                            .empty());
        });
        makeTuned(folder.file("library.nc"), [&](int ncid) {
            require(nc__enddef(ncid, t.headerFree, t.variableAlign, t.variableFree, t.recordAlign));
        });
        EXPECT_EQ(bytesOf("module.nc"), bytesOf("library.nc"));
        layouts.insert(bytesOf("module.nc"));
    }
    EXPECT_EQ(layouts.size(), std::size(tunings)); // each value shows
}

TEST_F(State, PEndDefRefusesANegativeValueAndStaysInDefineMode)
{
    const int ncid = createFile("x.nc", "clobber");
    for (int i = 1; i <= 4; ++i) {
        std::vector<Value> arguments = {ncid, 0, 4, 0, 4};
        arguments[static_cast<std::size_t>(i)] = -1;
        EXPECT_THAT(host.attempt("pEndDef", arguments), raises("argumentOutOfBounds")) << i;
    }
    EXPECT_THAT(host.attempt("defDim", {ncid, "x", 2}), succeeds());
    EXPECT_THAT(host.attempt("pEndDef", {ncid, 0, 4, 0, 4}), succeeds());
    EXPECT_THAT(host.attempt("pEndDef", {ncid, 0, 4, 0, 4}),
                raises("libraryFailure",
                       {"pEndDef", "NC_ENOTINDEFINE", "Operation not allowed in data mode"}));
}

TEST_F(State, SetFillReturnsThePreviousMode)
{
    const int ncid = createFile("x.nc", "clobber");
    EXPECT_EQ(host.call("setFill", {ncid, NC_NOFILL}), std::vector<Value>{Value::number(NC_FILL)});
    EXPECT_EQ(host.call("setFill", {ncid, NC_NOFILL})[0], Value::number(NC_NOFILL));
    EXPECT_EQ(host.call("setFill", {ncid, NC_FILL})[0], Value::number(NC_NOFILL));
    EXPECT_EQ(host.call("setFill", {ncid, NC_FILL})[0], Value::number(NC_FILL));
}

TEST_F(State, SetFillLeavesValidationToTheLibrary)
{
    const int ncid = createFile("x.nc", "clobber");
    const auto outcome = host.attempt("setFill", {ncid, 77});
    EXPECT_THAT(outcome, raises("libraryFailure", {"setFill", "NC_EINVAL", "Invalid argument"}));
    EXPECT_THAT(host.attempt("setFill", {ncid, "NC_NOFILL"}), // no words here
                raises("badScalarArgument", {"new_fill_mode", "numeric"}));
}

TEST_F(State, SetFillSwitchesPrefillingOff)
{
    const std::pair<double, bool> modes[] = {{NC_FILL, true}, {NC_NOFILL, false}};
    for (const auto& [mode, filled] : modes) {
        const int ncid = createFile("x.nc", "netcdf4");
        host.call("setFill", {ncid, mode});
        const Value x = host.call("defDim", {ncid, "x", 2})[0];
        host.call("defVar", {ncid, "v", NC_INT, x});
        closeFile(ncid);
        auto file = LibraryFile::open(folder.file("x.nc"));
        int noFill = 0;
        require(nc_inq_var_fill(file.ncid(), file.varid("v"), &noFill, nullptr));
        EXPECT_EQ(noFill == 0, filled);
    }
}

TEST_F(State, SetDefaultFormatReturnsThePreviousFormat)
{
    const double formats[] = {NC_FORMAT_NETCDF4, NC_FORMAT_64BIT_OFFSET, NC_FORMAT_NETCDF4_CLASSIC,
                              NC_FORMAT_CDF5, NC_FORMAT_CLASSIC};
    double before = NC_FORMAT_CLASSIC;
    for (const double format : formats) {
        EXPECT_EQ(host.call("setDefaultFormat", {format}), std::vector<Value>{Value(before)});
        before = format;
    }
}

TEST_F(State, SetDefaultFormatAppliesToLaterFilesThatNameNoFormat)
{
    host.call("setDefaultFormat", {NC_FORMAT_NETCDF4});
    closeFile(createFile("plain.nc", "clobber"));
    closeFile(createFile("named.nc", "64bit_offset"));
    host.call("close", {host.call("pCreate", {folder.file("p.nc"), "clobber", 0, 0})[1]});
    EXPECT_EQ(ncdumpKind(folder.file("plain.nc")), "netCDF-4");
    EXPECT_EQ(ncdumpKind(folder.file("p.nc")), "netCDF-4");
    EXPECT_EQ(ncdumpKind(folder.file("named.nc")), "64-bit offset");
}

TEST_F(State, SetDefaultFormatReportsTheLibraryOnAnUnsupportedNumber)
{
    for (const double format : {0.0, 6.0, -1.0, 99.0}) {
        const auto outcome = host.attempt("setDefaultFormat", {format});
        EXPECT_THAT(outcome, raises("libraryFailure",
                                    {"setDefaultFormat", "NC_EINVAL", "Invalid argument"}));
        EXPECT_TRUE(outcome.results.empty());
    }
    EXPECT_EQ(host.call("setDefaultFormat", {1})[0], Value(1)); // unchanged
}

} // namespace
} // namespace testsupport
