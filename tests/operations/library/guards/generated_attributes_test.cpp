// SPDX-License-Identifier: BSD-3-Clause
// _NCProperties, which the library generates for netCDF-4 files, is an ordinary name elsewhere.
#include "tests/operations/operation_test.h"
#include "tests/support/library_file.h"

using namespace testsupport;

namespace {

class ProvenanceAttribute : public OperationTest {};

TEST_F(ProvenanceAttribute, IsAnOrdinaryAttributeInAClassicFile)
{
    const int from = createFile("from.nc", "clobber");
    const int to = createFile("to.nc", "clobber");
    number("defVar", {from, "v", NC_INT, row({})});
    require(nc_put_att_text(from, NC_GLOBAL, "_NCProperties", 4, "a\0bc"));
    require(nc_put_att_text(from, 0, "_NCProperties", 2, "of"));
    host.call("copyAtt", {from, NC_GLOBAL, "_NCProperties", to, NC_GLOBAL});
    number("defVar", {to, "v", NC_INT, row({})});
    host.call("copyAtt", {from, 0, "_NCProperties", to, 0});

    char text[4] = "";
    require(nc_get_att_text(to, NC_GLOBAL, "_NCProperties", text));
    EXPECT_EQ(std::string(text, 4), std::string("a\0bc", 4));
    require(nc_get_att_text(to, 0, "_NCProperties", text));
    EXPECT_EQ(std::string(text, 2), "of");
    closeFile(from);
    closeFile(to);
}

// For these attributes the library writes fewer bytes than the requested type has.
TEST_F(ProvenanceAttribute, ReadAsNumbersShowsNothingOfOtherMemory)
{
    closeFile(createFile("x.nc"));
    const int ncid = openFile("x.nc");
    for (const char* name : {"_NCProperties", "_IsNetcdf4", "_SuperblockVersion"}) {
        for (const char* suffix : {"Double", "Float", "Int64", "Uint64", "Int", "Uint", "Short",
                                   "Ushort", "Schar", "Uchar", "Ubyte"}) {
            const std::string operation = std::string("getAtt") + suffix;
            host.fillUninitialised(0x55);
            const Outcome first = attempt(operation, {ncid, NC_GLOBAL, name});
            host.fillUninitialised(0x77);
            const Outcome second = attempt(operation, {ncid, NC_GLOBAL, name});
            EXPECT_EQ(first.results, second.results) << operation << ' ' << name;
        }
    }
    closeFile(ncid);
}

} // namespace
