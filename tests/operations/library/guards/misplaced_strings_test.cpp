// SPDX-License-Identifier: BSD-3-Clause
// Attributes and fill values of a compound type whose string is not its first field: right, or
// refused where the library would lose the string.
#include "library/guards/misplaced_strings.h"
#include "tests/operations/operation_test.h"
#include "tests/support/library_file.h"

#include <hdf5.h>

#include <cstddef>

using namespace testsupport;

namespace {

struct Port {
    int depth;
    const char* name;
};

// An attribute of the file's root, made by HDF5 alone.
void addPort(const std::string& path, const char* attribute, Port port)
{
    const hid_t file = H5Fopen(path.c_str(), H5F_ACC_RDWR, H5P_DEFAULT);
    const hid_t type = H5Topen2(file, "port", H5P_DEFAULT);
    const hid_t space = H5Screate(H5S_SCALAR);
    const hid_t made = H5Acreate2(file, attribute, type, space, H5P_DEFAULT, H5P_DEFAULT);
    EXPECT_GE(H5Awrite(made, type, &port), 0);
    H5Aclose(made);
    H5Sclose(space);
    H5Tclose(type);
    H5Fclose(file);
}

class MisplacedStrings : public OperationTest {
protected:
    void SetUp() override
    {
        ncid = createFile("ports.nc", NC_NETCDF4);
        host.callAny("defCompound", {ncid, sizeof(Port), "port"});
        host.callAny("insertCompound", {ncid, "port", "depth", offsetof(Port, depth), "int"});
        host.callAny("insertCompound", {ncid, "port", "name", offsetof(Port, name), "string"});
        type = host.callAny("inqTypeID", {ncid, "port"}).at(0).toDouble();
    }

    void reopen()
    {
        closeFile(ncid);
        addPort(folder.file("ports.nc"), "made", {7, "Bergen"});
        ncid = id("open", {folder.file("ports.nc"), "NC_WRITE"});
    }

    // True if the operation was done. It is refused where it would not be right, and nowhere else.
    static bool isDone(const Outcome& outcome, const std::string& operation)
    {
        if (!Ovard::gridio::misplacesStrings(nc_inq_libvers())) {
            EXPECT_TRUE(outcome.succeeded()) << operation << outcome;
            return outcome.succeeded();
        }
        EXPECT_THAT(outcome, failsInLibrary(operation, "NC_EBADTYPE", NC_EBADTYPE));
        return false;
    }

    static Value port(int depth, const char* name)
    {
        return Value::structure({{"depth", depth}, {"name", Value::cell({1, 1}, {name})}});
    }

    int ncid = -1;
    double type = 0;
};

TEST_F(MisplacedStrings, AreWrittenRightOrNotAtAll)
{
    const Outcome outcome = host.attemptAny("putAtt", {ncid, -1, "a", type, port(7, "Bergen")});
    closeFile(ncid);
    const LibraryFile file = LibraryFile::open(folder.file("ports.nc"));
    if (!isDone(outcome, "putAtt")) {
        EXPECT_EQ(nc_inq_attid(file.ncid(), NC_GLOBAL, "a", nullptr), NC_ENOTATT);
        return;
    }
    Port read = {};
    require(nc_get_att(file.ncid(), NC_GLOBAL, "a", &read));
    EXPECT_EQ(read.depth, 7);
    EXPECT_STREQ(read.name, "Bergen");
    require(nc_reclaim_data(file.ncid(), static_cast<int>(type), &read, 1));
}

TEST_F(MisplacedStrings, AreReadRightOrNotAtAll)
{
    reopen();
    const Outcome outcome = host.attemptAny("getAtt", {ncid, -1, "made"});
    if (isDone(outcome, "getAtt")) {
        EXPECT_EQ(outcome.results.at(0).field("depth"), Value::scalar<std::int32_t>(7));
        EXPECT_EQ(outcome.results.at(0).field("name").toText(), "Bergen");
    }
}

TEST_F(MisplacedStrings, AreCopiedRightOrNotAtAll)
{
    const int varid = id("defVar", {ncid, "v", NC_INT, Value::empty()});
    reopen();
    if (isDone(attempt("copyAtt", {ncid, -1, "made", ncid, varid}), "copyAtt")) {
        const Value copy = host.callAny("getAtt", {ncid, varid, "made"}).at(0);
        EXPECT_EQ(copy.field("name").toText(), "Bergen");
    }
    // An attribute of another type is copied in any case.
    host.call("putAttText", {ncid, -1, "title", "Ports"});
    host.call("copyAtt", {ncid, -1, "title", ncid, varid});
}

TEST_F(MisplacedStrings, FillVariablesRightOrNotAtAll)
{
    const int varid = id("defVar", {ncid, "v", type, Value::empty()});
    isDone(host.attemptAny("defVarFill", {ncid, varid, false, port(7, "Bergen")}), "defVarFill");
    const Value flag = host.callAny("inqVarFill", {ncid, varid}).at(0);
    EXPECT_FALSE(flag.toLogical());
}

TEST_F(MisplacedStrings, AreKeptInVariables)
{
    const int varid = id("defVar", {ncid, "v", type, Value::empty()});
    host.callAny("putVar", {ncid, varid, port(7, "Bergen")});
    const Value read = host.callAny("getVar", {ncid, varid}).at(0);
    EXPECT_EQ(read.field("name").toText(), "Bergen");
}

} // namespace
