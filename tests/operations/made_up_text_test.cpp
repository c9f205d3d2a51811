// SPDX-License-Identifier: BSD-3-Clause
// The name of the text that the library makes up for netCDF-4 files is like any other in other
// places.
#include "tests/operations/operation_test.h"
#include "tests/support/library_file.h"

using namespace testsupport;

namespace {

class MadeUpText : public OperationTest {};

TEST_F(MadeUpText, IsAnAttributeLikeAnyOtherInAClassicFile)
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

} // namespace
