// SPDX-License-Identifier: BSD-3-Clause
// Compound types with array fields of compound types that hold strings: HDF5 mixes up the strings
// of several values that are written in one call.
#include "tests/operations/operation_test.h"
#include "tests/support/library_file.h"

#include <netcdf.h>

using namespace testsupport;

namespace {

struct Name {
    char* text;
};

struct Ship {
    Name names[2];
};

class ArraysOfCompounds : public OperationTest {
protected:
    void SetUp() override
    {
        ncid = createFile("ships.nc", NC_NETCDF4);
        any("defCompound", {ncid, sizeof(Name), "name"});
        any("insertCompound", {ncid, "name", "text", 0, "string"});
        any("defCompound", {ncid, sizeof(Ship), "ship"});
        any("insertArrayCompound", {ncid, "ship", "names", 0, "name", 2});
        ship = host.callAny("inqTypeID", {ncid, "ship"}).at(0).toDouble();
        number("defDim", {ncid, "x", 2});
    }

    void any(const std::string& operation, const Values& arguments)
    {
        host.callAny(operation, arguments);
    }

    static Value shipsNamed(const std::vector<std::size_t>& dims, const Values& names)
    {
        return Value::structure(
            {{"names", Value::structure({{"text", Value::cell(dims, names)}})}});
    }

    int ncid = -1;
    double ship = 0; // its identifier
};

TEST_F(ArraysOfCompounds, KeepTheStringsOfEachValue)
{
    const int varid = id("defVar", {ncid, "v", ship, 0});
    any("putVar", {ncid, varid, shipsNamed({2, 2}, {"a", "b", "c", "d"})});
    closeFile(ncid);

    const LibraryFile file = LibraryFile::open(folder.file("ships.nc"));
    Ship read[2];
    require(nc_get_var(file.ncid(), 0, read));
    EXPECT_STREQ(read[0].names[0].text, "a");
    EXPECT_STREQ(read[0].names[1].text, "b");
    EXPECT_STREQ(read[1].names[0].text, "c");
    EXPECT_STREQ(read[1].names[1].text, "d");
    require(nc_reclaim_data(file.ncid(), static_cast<int>(ship), read, 2));
}

TEST_F(ArraysOfCompounds, AreRefusedWhereTheyCannotBeWrittenOneByOne)
{
    any("putAtt", {ncid, -1, "one", ship, shipsNamed({2, 1}, {"a", "b"})});
    EXPECT_EQ(
        host.attemptAny("putAtt", {ncid, -1, "two", ship, shipsNamed({2, 2}, {"a", "b", "c", "d"})})
            .raised->name(),
        "foreignType");
    closeFile(ncid);
}

TEST_F(ArraysOfCompounds, AreWrittenIntoVlensOneToEach)
{
    any("defVlen", {ncid, "fleet", ship});
    const double fleet = host.callAny("inqTypeID", {ncid, "fleet"}).at(0).toDouble();
    const int varid = id("defVar", {ncid, "v", fleet, 0});
    any("putVar",
        {ncid, varid,
         Value::cell({2, 1}, {shipsNamed({2, 1}, {"a", "b"}), shipsNamed({2, 1}, {"c", "d"})})});
    EXPECT_EQ(host.attemptAny("putVar1",
                              {ncid, varid, 0,
                               Value::cell({1, 1}, {shipsNamed({2, 2}, {"a", "b", "c", "d"})})})
                  .raised->name(),
              "foreignType");
    closeFile(ncid);

    const LibraryFile file = LibraryFile::open(folder.file("ships.nc"));
    nc_vlen_t read[2];
    require(nc_get_var(file.ncid(), 0, read));
    for (const nc_vlen_t& ships : read)
        ASSERT_EQ(ships.len, 1U);
    EXPECT_STREQ(static_cast<const Ship*>(read[0].p)->names[0].text, "a");
    EXPECT_STREQ(static_cast<const Ship*>(read[0].p)->names[1].text, "b");
    EXPECT_STREQ(static_cast<const Ship*>(read[1].p)->names[0].text, "c");
    EXPECT_STREQ(static_cast<const Ship*>(read[1].p)->names[1].text, "d");
    require(nc_reclaim_data(file.ncid(), static_cast<int>(fleet), read, 2));
}

} // namespace
