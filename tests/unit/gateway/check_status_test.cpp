// SPDX-License-Identifier: BSD-3-Clause
#include "check_status.h"

#include "gateway/error_code_names.h"
#include "tests/support/raised_matcher.h"
#include "tests/library/library_stand_in.h"

#include <gtest/gtest.h>
#include <netcdf.h>

#include <set>
#include <string>

namespace Ovard::gridio {
namespace {

using standalone::Outcome;
using testsupport::LibraryStandIn;
using testsupport::outcomeOf;
using testsupport::raises;
using testsupport::succeeds;

const OperationEntry row = {38, "getVaraDouble", 4, nullptr};

Outcome check(int status, const OperationEntry& entry = row)
{
    return outcomeOf([&] { checkStatus(status, &entry); });
}

TEST(CheckStatus, ReturnsWhenTheLibrarySucceeded) { EXPECT_THAT(check(0), succeeds()); }

TEST(CheckStatus, RaisesEachNamedStatusWithItsNameAndTheLibrarysText)
{
    const std::set<int> remoteAccess = {-66, -67, -68, -70, -71, -72, -73, -74, -75};
    for (const auto& [status, name] : errorCodeNames) {
        std::string text = nc_strerror(status);
        if (text.rfind("NetCDF: ", 0) == 0)
            text = text.substr(8);
        const char* kind = remoteAccess.count(status) != 0 ? "librarydapFailure" : "libraryFailure";
        EXPECT_THAT(check(status), raises(kind, {"getVaraDouble", name, text}));
    }
}

TEST(CheckStatus, TellsTheNineRemoteAccessStatusesFromTheirNeighbours)
{
    const auto kind = [](int status) { return check(status).raised->name(); };
    EXPECT_EQ(kind(NC_EAXISTYPE), "libraryFailure"); // -65
    for (const int status : {NC_EDAP, NC_ECURL, NC_EIO, NC_EDAPSVC, NC_EDAS, NC_EDDS, NC_EDATADDS,
                             NC_EDAPURL, NC_EDAPCONSTRAINT})
        EXPECT_EQ(kind(status), "librarydapFailure") << status;
    EXPECT_EQ(kind(NC_ETRANSLATION), "libraryFailure"); // -76
}

TEST(CheckStatus, DeliberatelyDoesNotCountNoDataAsRemoteAccess)
{
    EXPECT_THAT(check(-69),
                raises("libraryFailure", {"getVaraDouble", "NC_ENODATA", "Variable has no data"}));
    EXPECT_THAT(check(-68),
                raises("librarydapFailure", {"getVaraDouble", "NC_EIO", "I/O failure"}));
    EXPECT_THAT(check(-75), raises("librarydapFailure", {"getVaraDouble", "NC_EDAPCONSTRAINT",
                                                         "Malformed or unexpected Constraint"}));
}

TEST(CheckStatus, RaisesAPositiveSystemErrorUnderItsDigits)
{
    EXPECT_THAT(check(2),
                raises("libraryFailure", {"getVaraDouble", "2", "No such file or directory"}));
    EXPECT_THAT(check(13), raises("libraryFailure", {"getVaraDouble", "13", "Permission denied"}));
}

TEST(CheckStatus, RaisesAStatusWithoutANameUnderItsDigits)
{
    EXPECT_THAT(check(-200),
                raises("libraryFailure", {"getVaraDouble", "-200", nc_strerror(-200)}));
}

TEST(CheckStatus, DropsTheLibrarysPrefixOnlyAtTheVeryStart)
{
    LibraryStandIn library;
    library.statusTexts = {
        {1001, "NetCDF: Index exceeds dimension bound"},
        {1002, "Cannot read NetCDF: the file"},
        {1003, " NetCDF: with a blank before it"},
        {1004, "netcdf: in lower case"},
        {1005, "NetCDF without a colon"},
        {1006, "NetCDF: NetCDF: twice"},
        {1007, "NetCDF:"},
        {1008, "NetCDF: "},
        {1009, ""},
        {1010, "NetCDF:/eight characters go"},
    };
    const std::map<int, std::string> expected = {
        {1001, "Index exceeds dimension bound"},
        {1002, "Cannot read NetCDF: the file"},
        {1003, " NetCDF: with a blank before it"},
        {1004, "netcdf: in lower case"},
        {1005, "NetCDF without a colon"},
        {1006, "NetCDF: twice"},
        {1007, ""},
        {1008, ""},
        {1009, ""},
        {1010, "eight characters go"},
    };
    for (const auto& [status, text] : expected)
        EXPECT_THAT(check(status),
                    raises("libraryFailure", {"getVaraDouble", std::to_string(status), text}));
}

TEST(CheckStatus, NamesTheOperationOfTheRowAndNotTheLibraryFunction)
{
    for (const char* operation : {"getVaraDouble", "putVar1UInt64", "pEndDef"}) {
        const OperationEntry entry = {0, operation, 0, nullptr};
        EXPECT_THAT(check(NC_EBADID, entry),
                    raises("libraryFailure", {operation, "NC_EBADID", "Not a valid ID"}));
    }
}

} // namespace
} // namespace Ovard::gridio
