// SPDX-License-Identifier: BSD-3-Clause
// The matcher of a library failure: its status, named by the test, and the library's own text.
#pragma once

#include "tests/support/raised_matcher.h"

#include <netcdf.h>

#include <string>

namespace testsupport {

inline std::string libraryText(int status)
{
    const std::string text = nc_strerror(status);
    const std::string prefix = "NetCDF: ";
    return text.compare(0, prefix.size(), prefix) == 0 ? text.substr(prefix.size()) : text;
}

inline testing::Matcher<const standalone::Outcome&>
failsInLibrary(const std::string& operation, const std::string& statusName, int status)
{
    return raises("libraryFailure", {operation, statusName, libraryText(status)});
}

} // namespace testsupport

// failsWith("getVaraDouble", NC_EEDGE): the name of the status as it is written here.
#define failsWith(operation, status) testsupport::failsInLibrary(operation, #status, status)
