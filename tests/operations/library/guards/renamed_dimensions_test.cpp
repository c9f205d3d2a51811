// SPDX-License-Identifier: BSD-3-Clause
// Renaming dimensions and variables of an existing file.
#include "tests/operations/operation_test.h"
#include "tests/support/command_line_tools.h"
#include "tests/support/library_file.h"

using namespace testsupport;
using testing::HasSubstr;

namespace {

class RenamedDimensions : public OperationTest {
protected:
    static constexpr int modes[] = {NC_NETCDF4, NC_NETCDF4 | NC_CLASSIC_MODEL};

    // x = 3 with its coordinate variable, y = 2, v (x, y); in a group, if there are any, w (x, y).
    std::string makeFile(int mode)
    {
        const int ncid = createFile("renamed.nc", mode);
        int dimids[2] = {};
        int varid = 0;
        require(nc_def_dim(ncid, "x", 3, &dimids[0]));
        require(nc_def_dim(ncid, "y", 2, &dimids[1]));
        require(nc_def_var(ncid, "x", NC_INT, 1, dimids, &varid));
        require(nc_def_var(ncid, "v", NC_INT, 2, dimids, &varid));
        int group = 0;
        if (mode == modes[0]) {
            require(nc_def_grp(ncid, "g", &group));
            require(nc_def_grp(group, "h", &group));
            require(nc_def_var(group, "w", NC_INT, 2, dimids, &varid));
        }
        closeFile(ncid);
        return folder.file("renamed.nc");
    }

    int openForDefining(int mode)
    {
        const int ncid = openFile("renamed.nc", "write");
        if (mode != modes[0])
            host.call("redef", {ncid});
        return ncid;
    }
};

TEST_F(RenamedDimensions, StayThoseOfVariablesInquiredLater)
{
    for (const int mode : modes) {
        const std::string path = makeFile(mode);
        const int ncid = openForDefining(mode);
        host.call("renameDim", {ncid, 0, "longitude"});
        host.call("renameDim", {ncid, 1, "latitude"});
        EXPECT_EQ(host.call("inqVar", {ncid, 1})[2], row({1, 0}));
        closeFile(ncid);
        const std::string dump = ncdump(path, "-h");
        EXPECT_THAT(dump, HasSubstr("\tlongitude = 3 ;\n\tlatitude = 2 ;\n"));
        EXPECT_THAT(dump, HasSubstr("\tint x(longitude) ;\n\tint v(longitude, latitude) ;\n"));
        const bool hasGroups = mode == modes[0];
        EXPECT_EQ(dump.find("int w(longitude, latitude) ;\n") != std::string::npos, hasGroups);
    }
}

TEST_F(RenamedDimensions, StayThoseOfVariablesInOtherGroups)
{
    const int made = createFile("groups.nc");
    int group = 0;
    int inner = 0;
    int dimid = 0;
    int varid = 0;
    require(nc_def_grp(made, "g", &group));
    require(nc_def_grp(group, "h", &inner));
    require(nc_def_dim(group, "y", 2, &dimid));
    require(nc_def_var(inner, "w", NC_INT, 1, &dimid, &varid));
    closeFile(made);

    const int ncid = openFile("groups.nc", "write");
    host.call("renameDim", {number("inqNcid", {ncid, "g"}), dimid, "latitude"});
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("groups.nc"), "-h"), HasSubstr("int w(latitude) ;\n"));
}

// As in tst_vars2 of the C library's tests: a longer name is refused in data mode.
TEST_F(RenamedDimensions, SurviveThatAVariableIsNotRenamed)
{
    const std::string path = makeFile(modes[1]);
    int ncid = openFile("renamed.nc", "write");
    host.call("renameDim", {ncid, 1, "z"}); // has no coordinate variable
    EXPECT_THAT(attempt("renameVar", {ncid, 1, "longer"}), failsWith("renameVar", NC_ENOTINDEFINE));
    EXPECT_THAT(attempt("renameVar", {ncid, 9, "w"}), failsWith("renameVar", NC_ENOTVAR));
    closeFile(ncid);

    ncid = openFile("renamed.nc", "write");
    EXPECT_THAT(attempt("renameVar", {ncid, 1, "longer"}), failsWith("renameVar", NC_ENOTINDEFINE));
    closeFile(ncid);
    EXPECT_THAT(ncdump(path, "-h"), HasSubstr("\tint x(x) ;\n\tint v(x, z) ;\n"));
}

TEST_F(RenamedDimensions, AreLeftToTheLibraryInClassicFiles)
{
    const int ncid = createFile("classic.nc", "clobber");
    host.call("defDim", {ncid, "x", 3});
    host.call("renameDim", {ncid, 0, "y"});
    EXPECT_THAT(attempt("renameDim", {ncid, 1, "z"}), failsWith("renameDim", NC_EBADDIM));
    closeFile(ncid);
    EXPECT_THAT(ncdump(folder.file("classic.nc"), "-h"), HasSubstr("\ty = 3 ;\n"));
}

} // namespace
