// SPDX-License-Identifier: BSD-3-Clause
// The library's own tools: what the module wrote is read with ncdump, and what it is to read is
// made with ncgen. All of these throw std::runtime_error when the tool fails.
#pragma once

#include <string>

namespace testsupport {

// The whole text that ncdump prints. Options such as "-h" (no data), "-s" (storage settings), "-p
// 9,17" (digits). The first line is always "netcdf test {".
std::string ncdump(const std::string& file, const std::string& options = "");

// What "ncdump -k" prints: "classic", "64-bit offset", "cdf5", "netCDF-4", "netCDF-4 classic
// model".
std::string ncdumpKind(const std::string& file);

// Makes a file from CDL text, of a kind as ncgen's -k takes it: "nc3", "nc6", "nc4", "nc7", "nc5".
void ncgen(const std::string& file, const std::string& cdl, const std::string& kind = "nc4");

} // namespace testsupport
