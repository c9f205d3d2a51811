// SPDX-License-Identifier: BSD-3-Clause
// Which library functions "Uchar" and "Ubyte" call: no file shows the difference.
#include "tests/library/library_stand_in.h"
#include "tests/support/module_test.h"

#include <netcdf.h>

namespace {

using namespace testsupport;
using standalone::Value;
using testing::Contains;
using testing::Not;

using UbyteAttributes = ModuleTest;

TEST_F(UbyteAttributes, DifferFromUcharInTheLibraryCallAlone)
{
    const int ncid = createFile("bytes.nc");
    const Value values = Value::row<std::uint8_t>({0, 127, 128, 255});
    const std::pair<std::string, std::string> types[] = {{"Uchar", "uchar"}, {"Ubyte", "ubyte"}};
    for (const auto& [suffix, word] : types) {
        LibraryStandIn library;
        host.call("putAtt" + suffix, {ncid, NC_GLOBAL, suffix, NC_UBYTE, values});
        EXPECT_EQ(host.call("getAtt" + suffix, {ncid, NC_GLOBAL, suffix}).at(0), values);
        for (const auto& [other, otherWord] : types) {
            const bool isOwn = word == otherWord;
            for (const std::string form : {"nc_put_att_", "nc_get_att_"}) {
                const auto itself = Contains(form + otherWord);
                if (isOwn)
                    EXPECT_THAT(library.calls, itself) << suffix;
                else
                    EXPECT_THAT(library.calls, Not(itself)) << suffix;
            }
        }
    }
}

} // namespace
