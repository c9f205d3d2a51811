// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/near_names.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using hosts::messages::nearNames;
using testing::ElementsAre;
using testing::IsEmpty;
using Names = std::vector<std::string>;

const Names operations = {"open", "pOpen", "create", "getVarDouble", "getVaraDouble", "inqVarID"};

TEST(NearNames, FindsASlip)
{
    EXPECT_THAT(nearNames("openn", operations), ElementsAre("open", "pOpen"));
    EXPECT_THAT(nearNames("opne", operations), ElementsAre("open", "pOpen"));
    EXPECT_THAT(nearNames("cretae", operations), ElementsAre("create"));
    EXPECT_THAT(nearNames("getVarDuoble", operations),
                ElementsAre("getVarDouble", "getVaraDouble"));
}

TEST(NearNames, FindsTheSameNameInOtherLettersAlone)
{
    EXPECT_THAT(nearNames("getvardouble", operations), ElementsAre("getVarDouble"));
    EXPECT_THAT(nearNames("OPEN", operations), ElementsAre("open"));
}

TEST(NearNames, FindsAPartAndAWhole)
{
    const Names variables = {"surface_temperature", "lat", "salinity"};
    EXPECT_THAT(nearNames("temperature", variables), ElementsAre("surface_temperature"));
    EXPECT_THAT(nearNames("latitude", variables), ElementsAre("lat"));
}

TEST(NearNames, FindsNothingFarAway)
{
    EXPECT_THAT(nearNames("precipitation", operations), IsEmpty());
    EXPECT_THAT(nearNames("x", {"y", "z"}), IsEmpty());
    EXPECT_THAT(nearNames("", operations), IsEmpty());
    EXPECT_THAT(nearNames("a", {""}), IsEmpty());
    EXPECT_THAT(nearNames("a", {}), IsEmpty());
}

TEST(NearNames, GivesThreeAtMostTheNearestFirst)
{
    EXPECT_THAT(nearNames("temp", {"tempxx", "tempx", "temp1", "temp2", "temps"}),
                ElementsAre("tempx", "temp1", "temp2"));
}

TEST(NearNames, PassesOverVeryLongNames)
{
    const std::string longName(100000, 'a');
    EXPECT_THAT(nearNames(longName, {longName + "b"}), IsEmpty());
    EXPECT_THAT(nearNames("aaa", {longName, "aab"}), ElementsAre("aab"));
}

} // namespace
