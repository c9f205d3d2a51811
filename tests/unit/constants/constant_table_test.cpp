// SPDX-License-Identifier: BSD-3-Clause
#include "constants/constant_table.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <string_view>

namespace Ovard::gridio {
namespace {

constexpr double typed = -1; // never returned: the value has the class of its netCDF type

struct Expected {
    const char* name;
    double value;
};

// Written independently of the table, in its order.
// clang-format off
const Expected expectedConstants[] = {
    {"NC_BYTE", 1}, {"NC_UBYTE", 7}, {"NC_CHAR", 2}, {"NC_DOUBLE", 6}, {"NC_FLOAT", 5},
    {"NC_UINT64", 11}, {"NC_INT64", 10}, {"NC_INT", 4}, {"NC_UINT", 9}, {"NC_LONG", 4},
    {"NC_NAT", 0}, {"NC_SHORT", 3}, {"NC_USHORT", 8}, {"NC_FILL_BYTE", typed},
    {"NC_FILL_CHAR", typed}, {"NC_FILL_SHORT", typed}, {"NC_FILL_INT", typed},
    {"NC_FILL_FLOAT", typed}, {"NC_FILL_DOUBLE", typed}, {"NC_FILL_UBYTE", typed},
    {"NC_FILL_USHORT", typed}, {"NC_FILL_UINT", typed}, {"NC_FILL_INT64", typed},
    {"NC_FILL_UINT64", typed}, {"NC_FILL", 0}, {"NC_NOFILL", 256}, {"NC_NOWRITE", 0},
    {"NC_WRITE", 1}, {"NC_CLOBBER", 0}, {"NC_NOCLOBBER", 4}, {"NC_64BIT_OFFSET", 512},
    {"NC_SHARE", 2048}, {"NC_LOCK", 1024}, {"NC_NETCDF4", 4096}, {"NC_CLASSIC_MODEL", 256},
    {"NC_FORMAT_CLASSIC", 1}, {"NC_FORMAT_64BIT", 2}, {"NC_MAX_DIMS", 1024},
    {"NC_MAX_ATTRS", 8192}, {"NC_MAX_VARS", 8192}, {"NC_MAX_NAME", 256}, {"NC_MAX_VAR_DIMS", 1024},
    {"NC2_ERR", -1}, {"NC_NOERR", 0}, {"NC_EBADID", -33}, {"NC_ENFILE", -34}, {"NC_EEXIST", -35},
    {"NC_EINVAL", -36}, {"NC_EPERM", -37}, {"NC_ENOTINDEFINE", -38}, {"NC_EINDEFINE", -39},
    {"NC_EINVALCOORDS", -40}, {"NC_EMAXDIMS", -41}, {"NC_ENAMEINUSE", -42}, {"NC_ENOTATT", -43},
    {"NC_EMAXATTS", -44}, {"NC_EBADTYPE", -45}, {"NC_EBADDIM", -46}, {"NC_EUNLIMPOS", -47},
    {"NC_EMAXVARS", -48}, {"NC_ENOTVAR", -49}, {"NC_EGLOBAL", -50}, {"NC_ENOTNC", -51},
    {"NC_ESTS", -52}, {"NC_EMAXNAME", -53}, {"NC_EUNLIMIT", -54}, {"NC_ENORECVARS", -55},
    {"NC_ECHAR", -56}, {"NC_EEDGE", -57}, {"NC_ESTRIDE", -58}, {"NC_EBADNAME", -59},
    {"NC_ERANGE", -60}, {"NC_ENOMEM", -61}, {"NC_EVARSIZE", -62}, {"NC_EDIMSIZE", -63},
    {"NC_ETRUNC", -64}, {"NC_FATAL", 1}, {"NC_GLOBAL", -1}, {"NC_UNLIMITED", 0},
    {"NC_SIZEHINT_DEFAULT", 0}, {"NC_VERBOSE", 2}, {"NC_EHDFERR", -101}, {"NC_ECANTREAD", -102},
    {"NC_ECANTWRITE", -103}, {"NC_ECANTCREATE", -104}, {"NC_EFILEMETA", -105},
    {"NC_EATTMETA", -107}, {"NC_EDIMMETA", -106}, {"NC_EVARMETA", -108}, {"NC_ENOCOMPOUND", -109},
    {"NC_EATTEXISTS", -110}, {"NC_ENOTNC4", -111}, {"NC_ESTRICTNC3", -112}, {"NC_ENOTNC3", -113},
    {"NC_ENOPAR", -114}, {"NC_EPARINIT", -115}, {"NC_EBADGRPID", -116}, {"NC_EBADTYPID", -117},
    {"NC_ETYPDEFINED", -118}, {"NC_EBADFIELD", -119}, {"NC_EBADCLASS", -120},
    {"NC_EMAPTYPE", -121}, {"NC_ELATEFILL", -122}, {"NC_ELATEDEF", -123}, {"NC_EDIMSCALE", -124},
    {"NC_ENOGRP", -125}, {"NC_ESTORAGE", -126}, {"NC_EBADCHUNK", -127}, {"NC_FORMAT_NETCDF4", 3},
    {"NC_FORMAT_NETCDF4_CLASSIC", 4}, {"NC_CHUNKED", 0}, {"NC_CONTIGUOUS", 1},
    {"NC_NOCHECKSUM", 0}, {"NC_FLETCHER32", 1},
};
// clang-format on

TEST(ConstantTable, HoldsExactlyThe114ConstantsInOrder)
{
    ASSERT_EQ(std::size(expectedConstants), 114U);
    ASSERT_EQ(constantCount, 114U);
    for (std::size_t i = 0; i < constantCount; ++i) {
        EXPECT_STREQ(constantTable[i].fullName, expectedConstants[i].name) << i;
        EXPECT_EQ(constantTable[i].value, expectedConstants[i].value) << expectedConstants[i].name;
    }
}

TEST(ConstantTable, LooksUpEachNameWithoutItsPrefix)
{
    for (const ConstantEntry& row : constantTable) {
        const std::string full = row.fullName;
        EXPECT_EQ(row.shortName(), full == "NC2_ERR" ? full : full.substr(3));
    }
}

TEST(ConstantTable, HoldsNoNameTwice)
{
    std::set<std::string> names;
    for (const ConstantEntry& row : constantTable)
        names.insert(row.shortName());
    EXPECT_EQ(names.size(), constantCount);
}

std::optional<std::size_t> placeOf(std::string_view name)
{
    const auto* found =
        std::find_if(std::begin(constantTable), std::end(constantTable),
                     [&](const ConstantEntry& row) { return name == row.fullName; });
    if (found == std::end(constantTable))
        return std::nullopt;
    return static_cast<std::size_t>(found - constantTable);
}

TEST(ConstantTable, DeliberatelyHasEattmetaBeforeEdimmeta)
{
    EXPECT_EQ(*placeOf("NC_EATTMETA") + 1, *placeOf("NC_EDIMMETA"));
}

TEST(ConstantTable, DeliberatelyHasFiveConstantsBetweenTheTwoRunsOfErrorCodes)
{
    const std::size_t before = *placeOf("NC_ETRUNC");
    for (const char* name :
         {"NC_FATAL", "NC_GLOBAL", "NC_UNLIMITED", "NC_SIZEHINT_DEFAULT", "NC_VERBOSE"}) {
        EXPECT_GT(*placeOf(name), before) << name;
        EXPECT_LE(*placeOf(name), before + 5) << name;
    }
    EXPECT_EQ(*placeOf("NC_EHDFERR"), before + 6);
}

TEST(ConstantTable, DeliberatelyLacksTheStatusesFrom65To76And128)
{
    for (const char* name : {"NC_EAXISTYPE", "NC_EDAP", "NC_ECURL", "NC_EIO", "NC_ENODATA",
                             "NC_EDAPSVC", "NC_EDAS", "NC_EDDS", "NC_EDATADDS", "NC_EDAPURL",
                             "NC_EDAPCONSTRAINT", "NC_ETRANSLATION", "NC_ENOTBUILT"})
        EXPECT_FALSE(placeOf(name)) << name;
    for (const ConstantEntry& row : constantTable)
        EXPECT_TRUE(row.value > -65 || (row.value < -100 && row.value > -128)) << row.fullName;
}

} // namespace
} // namespace Ovard::gridio
