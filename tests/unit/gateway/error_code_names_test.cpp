// SPDX-License-Identifier: BSD-3-Clause
#include "gateway/error_code_names.h"

#include "check_status.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace Ovard::gridio {
namespace {

// Written independently, not copied from the map.
// clang-format off
const std::map<int, std::string> expectedNames = {
    {-1, "NC2_ERR"}, {-33, "NC_EBADID"}, {-34, "NC_ENFILE"}, {-35, "NC_EEXIST"},
    {-36, "NC_EINVAL"}, {-37, "NC_EPERM"}, {-38, "NC_ENOTINDEFINE"}, {-39, "NC_EINDEFINE"},
    {-40, "NC_EINVALCOORDS"}, {-41, "NC_EMAXDIMS"}, {-42, "NC_ENAMEINUSE"}, {-43, "NC_ENOTATT"},
    {-44, "NC_EMAXATTS"}, {-45, "NC_EBADTYPE"}, {-46, "NC_EBADDIM"}, {-47, "NC_EUNLIMPOS"},
    {-48, "NC_EMAXVARS"}, {-49, "NC_ENOTVAR"}, {-50, "NC_EGLOBAL"}, {-51, "NC_ENOTNC"},
    {-52, "NC_ESTS"}, {-53, "NC_EMAXNAME"}, {-54, "NC_EUNLIMIT"}, {-55, "NC_ENORECVARS"},
    {-56, "NC_ECHAR"}, {-57, "NC_EEDGE"}, {-58, "NC_ESTRIDE"}, {-59, "NC_EBADNAME"},
    {-60, "NC_ERANGE"}, {-61, "NC_ENOMEM"}, {-62, "NC_EVARSIZE"}, {-63, "NC_EDIMSIZE"},
    {-64, "NC_ETRUNC"}, {-65, "NC_EAXISTYPE"}, {-66, "NC_EDAP"}, {-67, "NC_ECURL"},
    {-68, "NC_EIO"}, {-69, "NC_ENODATA"}, {-70, "NC_EDAPSVC"}, {-71, "NC_EDAS"}, {-72, "NC_EDDS"},
    {-73, "NC_EDATADDS"}, {-74, "NC_EDAPURL"}, {-75, "NC_EDAPCONSTRAINT"},
    {-76, "NC_ETRANSLATION"}, {-101, "NC_EHDFERR"}, {-102, "NC_ECANTREAD"},
    {-103, "NC_ECANTWRITE"}, {-104, "NC_ECANTCREATE"}, {-105, "NC_EFILEMETA"},
    {-106, "NC_EDIMMETA"}, {-107, "NC_EATTMETA"}, {-108, "NC_EVARMETA"}, {-109, "NC_ENOCOMPOUND"},
    {-110, "NC_EATTEXISTS"}, {-111, "NC_ENOTNC4"}, {-112, "NC_ESTRICTNC3"}, {-113, "NC_ENOTNC3"},
    {-114, "NC_ENOPAR"}, {-115, "NC_EPARINIT"}, {-116, "NC_EBADGRPID"}, {-117, "NC_EBADTYPID"},
    {-118, "NC_ETYPDEFINED"}, {-119, "NC_EBADFIELD"}, {-120, "NC_EBADCLASS"},
    {-121, "NC_EMAPTYPE"}, {-122, "NC_ELATEFILL"}, {-123, "NC_ELATEDEF"}, {-124, "NC_EDIMSCALE"},
    {-125, "NC_ENOGRP"}, {-126, "NC_ESTORAGE"}, {-127, "NC_EBADCHUNK"}, {-128, "NC_ENOTBUILT"},
};
// clang-format on

TEST(ErrorCodeNames, HoldsExactlyThe73Names)
{
    EXPECT_EQ(expectedNames.size(), 73U);
    EXPECT_EQ(errorCodeNames, expectedNames);
}

TEST(ErrorCodeName, NamesEachOfThe73Statuses)
{
    for (const auto& [status, name] : expectedNames)
        EXPECT_EQ(errorCodeName(status), name) << status;
}

TEST(ErrorCodeName, GivesTheDigitsOfEveryOtherStatus)
{
    for (int status = -300; status <= 300; ++status) {
        if (expectedNames.count(status) == 0) {
            EXPECT_EQ(errorCodeName(status), std::to_string(status));
        }
    }
    EXPECT_EQ(errorCodeName(2), "2");
    EXPECT_EQ(errorCodeName(-200), "-200");
    EXPECT_EQ(errorCodeName(2147483647), "2147483647");
    EXPECT_EQ(errorCodeName(-2147483647 - 1), "-2147483648");
}

} // namespace
} // namespace Ovard::gridio
