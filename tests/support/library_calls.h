// SPDX-License-Identifier: BSD-3-Clause
// The typed library calls by the suffix of an operation's name, written out, to check the module's
// table.
#pragma once

#include <netcdf.h>

#include <string>

namespace testsupport {

int libraryGetVar(const std::string& suffix, int ncid, int varid, void* values);
int libraryGetAtt(const std::string& suffix, int ncid, int varid, const char* name, void* values);

} // namespace testsupport
