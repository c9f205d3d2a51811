// SPDX-License-Identifier: BSD-3-Clause
// Which library function serves "Uchar" and which "Ubyte". No file shows the difference, so the
// four functions are defined here, in front of the library's own, and noted down as they pass.
#include "tests/support/in_library.h"
#include "tests/support/module_test.h"

#include <netcdf.h>

namespace {

std::vector<std::string> callsSeen;

template <class Function> Function* seen(const char* name, Function* function)
{
    callsSeen.emplace_back(name);
    return testsupport::inLibrary(name, function);
}

} // namespace

extern "C" {

int nc_get_att_uchar(int ncid, int varid, const char* name, unsigned char* values)
{
    return seen(__func__, nc_get_att_uchar)(ncid, varid, name, values);
}

int nc_get_att_ubyte(int ncid, int varid, const char* name, unsigned char* values)
{
    return seen(__func__, nc_get_att_ubyte)(ncid, varid, name, values);
}

int nc_put_att_uchar(int ncid, int varid, const char* name, nc_type xtype, std::size_t count,
                     const unsigned char* values)
{
    return seen(__func__, nc_put_att_uchar)(ncid, varid, name, xtype, count, values);
}

int nc_put_att_ubyte(int ncid, int varid, const char* name, nc_type xtype, std::size_t count,
                     const unsigned char* values)
{
    return seen(__func__, nc_put_att_ubyte)(ncid, varid, name, xtype, count, values);
}

} // extern "C"

namespace {

using namespace testsupport;
using standalone::Value;
using testing::ElementsAre;

TEST_F(ModuleTest, UcharAndUbyteAttributesDifferInTheLibraryCallAlone)
{
    const int ncid = createFile("bytes.nc");
    const Value values = Value::row<std::uint8_t>({0, 127, 128, 255});

    for (const std::string suffix : {"Uchar", "Ubyte"}) {
        callsSeen.clear();
        host.call("putAtt" + suffix, {ncid, NC_GLOBAL, suffix, NC_UBYTE, values});
        EXPECT_EQ(host.call("getAtt" + suffix, {ncid, NC_GLOBAL, suffix}).at(0), values);
        const std::string word = suffix == "Uchar" ? "uchar" : "ubyte";
        EXPECT_THAT(callsSeen, ElementsAre("nc_put_att_" + word, "nc_get_att_" + word));
    }
}

} // namespace
