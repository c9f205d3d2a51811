// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unloaded_library.h"

#include <gtest/gtest.h>

using Ovard::gridio::leavesItsDriverBehind;

namespace {

TEST(LeavesItsDriverBehind, IsTrueOfTwoReleasesAlone)
{
    for (const char* release :
         {"4.9.1 of Feb  9 2023 12:00:00 $", "4.9.2 of Mar 14 2023", "4.9.2", "4.9.1-development"})
        EXPECT_TRUE(leavesItsDriverBehind(release)) << release;
    for (const char* release : {"4.9.0 of Sep  3 2022", "4.9.3 of Mar  1 2025", "4.9.10",
                                "4.9.11 of", "4.10.1", "14.9.1", ""})
        EXPECT_FALSE(leavesItsDriverBehind(release)) << release;
}

} // namespace
