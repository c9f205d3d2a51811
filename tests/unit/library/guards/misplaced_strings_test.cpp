// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/misplaced_strings.h"

#include "tests/support/library_file.h"
#include "tests/support/scratch_folder.h"

#include <gtest/gtest.h>

#include <cstddef>

using namespace testsupport;
using Ovard::gridio::holdsStringBehindItsStart;
using Ovard::gridio::misplacesStrings;

namespace {

TEST(MisplacesStrings, IsTrueOfOneReleaseAlone)
{
    for (const char* release : {"4.9.3 of Feb  7 2025 12:00:00 $", "4.9.3", "4.9.3-development"})
        EXPECT_TRUE(misplacesStrings(release)) << release;
    for (const char* release : {"4.9.0 of Sep  3 2022", "4.9.2 of Mar 14 2023", "4.9.30",
                                "4.10.1 of Jun  1 2026", "14.9.3", ""})
        EXPECT_FALSE(misplacesStrings(release)) << release;
}

class HoldsStringBehindItsStart : public testing::Test {
protected:
    // Defines a compound type with fields at the offsets 0 and 8.
    nc_type pair(nc_type first, nc_type second)
    {
        nc_type type = NC_NAT;
        const std::string name = "pair" + std::to_string(number_++);
        require(nc_def_compound(file_.ncid(), 32, name.c_str(), &type));
        require(nc_insert_compound(file_.ncid(), type, "first", 0, first));
        require(nc_insert_compound(file_.ncid(), type, "second", 8, second));
        return type;
    }

    nc_type vlen(nc_type of)
    {
        nc_type type = NC_NAT;
        const std::string name = "vlen" + std::to_string(number_++);
        require(nc_def_vlen(file_.ncid(), name.c_str(), of, &type));
        return type;
    }

    bool holds(nc_type type) const
    {
        return holdsStringBehindItsStart(file_.ncid(), type, nullptr);
    }

    ScratchFolder folder_;
    LibraryFile file_ = LibraryFile::create(folder_.file("types.nc"));
    int number_ = 0;
};

TEST_F(HoldsStringBehindItsStart, IsTrueOfAnyFieldButTheFirst)
{
    EXPECT_TRUE(holds(pair(NC_INT, NC_STRING)));
    EXPECT_TRUE(holds(pair(NC_STRING, NC_STRING)));
    EXPECT_FALSE(holds(pair(NC_STRING, NC_INT)));
    EXPECT_FALSE(holds(pair(NC_INT, NC_DOUBLE)));
}

TEST_F(HoldsStringBehindItsStart, LooksIntoOtherTypes)
{
    EXPECT_TRUE(holds(vlen(pair(NC_INT, NC_STRING))));
    EXPECT_TRUE(holds(pair(pair(NC_INT, NC_STRING), NC_INT)));
    EXPECT_TRUE(holds(pair(NC_INT, vlen(pair(NC_INT, NC_STRING)))));
    EXPECT_FALSE(holds(pair(NC_INT, pair(NC_STRING, NC_INT))));
    EXPECT_FALSE(holds(pair(NC_INT, vlen(NC_STRING))));
}

TEST_F(HoldsStringBehindItsStart, IsFalseOfTypesThatAreNone)
{
    EXPECT_FALSE(holds(NC_STRING));
    EXPECT_FALSE(holds(NC_NAT));
}

} // namespace
