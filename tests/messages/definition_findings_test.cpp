// SPDX-License-Identifier: BSD-3-Clause
#include "tests/messages/message_test.h"

namespace {

using testing::HasSubstr;

class DefinitionFinding : public testsupport::MessageTest {};

TEST_F(DefinitionFinding, ShowsWhereTheUnlimitedDimensionBelongs)
{
    const int ncid = createFile("order.nc", "clobber");
    for (const char* name : {"x", "y"})
        host.call("defDim", {ncid, name, 3});
    host.call("defDim", {ncid, "time", 0});
    EXPECT_THAT(messageOf("defVar", {ncid, "v", NC_INT, row({2, 0, 1})}),
                HasSubstr("The unlimited dimension \"time\" stands first of 3 in (time, x, y); put "
                          "it last: (x, y, time)."));
    EXPECT_THAT(messageOf("defDim", {ncid, "more", 0}),
                HasSubstr("already has the unlimited dimension \"time\"."));
}

TEST_F(DefinitionFinding, NamesTheFormatThatLacksAFeature)
{
    const int ncid = createFile("classic.nc", "64bit_offset");
    EXPECT_THAT(messageOf("defGrp", {ncid, "g"}),
                HasSubstr("The format of the file is 64-bit offset."));
    const int model = createFile("model.nc", NC_NETCDF4 | NC_CLASSIC_MODEL);
    EXPECT_THAT(messageOf("defGrp", {model, "g"}),
                HasSubstr("The format of the file is netCDF-4 classic model."));
}

TEST_F(DefinitionFinding, NamesTheNumberThatIsInvalid)
{
    const int ncid = createFile("storage.nc");
    host.call("defDim", {ncid, "x", 5});
    host.call("defDim", {ncid, "time", 0});
    host.call("defVar", {ncid, "v", NC_INT, row({0})});
    host.call("defVar", {ncid, "s", NC_INT, Value::empty()});
    host.call("defVar", {ncid, "r", NC_INT, row({1})});
    EXPECT_THAT(messageOf("defVarDeflate", {ncid, 0, true, true, 10}),
                HasSubstr("The deflate level is 10: it goes from 0"));
    EXPECT_THAT(messageOf("defVarDeflate", {ncid, 1, true, true, 1}),
                HasSubstr("\"s\" has no dimensions, so that it cannot"));
    EXPECT_THAT(messageOf("defVarFletcher32", {ncid, 1, 1}), HasSubstr("\"s\" has no dimensions"));
    EXPECT_THAT(messageOf("defVarChunking", {ncid, 2, 1, Value::empty()}),
                HasSubstr("\"r\" has the unlimited dimension \"time\""));
    host.call("defVarDeflate", {ncid, 0, true, true, 1});
    EXPECT_THAT(messageOf("defVarChunking", {ncid, 0, 1, Value::empty()}),
                HasSubstr("\"v\" is compressed or has a checksum"));
    EXPECT_THAT(messageOf("defVarChunking", {ncid, 0, 0, 9}),
                HasSubstr("The chunk size 9 is larger than dimension \"x\" (length 5)."));
    EXPECT_THAT(messageOf("setFill", {ncid, 7}), HasSubstr("The fill mode 7 is neither"));
    EXPECT_THAT(messageOf("setDefaultFormat", {99}), HasSubstr("The format 99 is not one of"));
}

} // namespace
