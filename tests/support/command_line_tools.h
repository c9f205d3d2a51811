// SPDX-License-Identifier: BSD-3-Clause
// The library's own tools: ncdump reads files that the module wrote, and ncgen makes files for it
// to read. All functions throw std::runtime_error if the tool fails.
#pragma once

#include <string>

namespace testsupport {

// The whole output of ncdump. Options such as "-h" (no data), "-s" (storage settings), "-p
// 9,17" (digits). The first line is always "netcdf test {".
std::string ncdump(const std::string& file, const std::string& options = "");

// The output of "ncdump -k": "classic", "64-bit offset", "cdf5", "netCDF-4", "netCDF-4 classic
// model".
std::string ncdumpKind(const std::string& file);

// Makes a file from CDL text; kind is an argument of ncgen's -k: "nc3", "nc6", "nc4", "nc7", "nc5".
void ncgen(const std::string& file, const std::string& cdl, const std::string& kind = "nc4");

} // namespace testsupport
