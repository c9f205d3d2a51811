// SPDX-License-Identifier: BSD-3-Clause
// A controllable netCDF library: during a LibraryStandIn's lifetime, every call of the module
// passes through it, and may fail, be replaced, or report results that the library would not. At
// most one object at a time.
#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace testsupport {

class LibraryStandIn {
public:
    LibraryStandIn();
    ~LibraryStandIn();
    LibraryStandIn(const LibraryStandIn&) = delete;
    LibraryStandIn& operator=(const LibraryStandIn&) = delete;

    // The functions that were called, in order, and the identifiers passed to nc_close.
    std::vector<std::string> calls;
    std::vector<int> closed;

    // The last setting passed to nc_def_var_fletcher32.
    std::optional<int> checksumGiven;

    // The n-th call (1: the first) returns that status, and the library is not called.
    std::size_t failingCall = 0;
    int status = 0;

    // Functions that are not called, and the status that they return.
    std::map<std::string, int> answers;

    // The status that nc_close returns by identifier, 0 for others; it then closes nothing.
    std::optional<std::map<int, int>> closeStatus;

    // Texts of nc_strerror by status; the library's for the others.
    std::map<int, std::string> statusTexts;

    // Results that successful calls report instead of the library's.
    std::optional<int> format;
    std::optional<int> storage;
    std::optional<int> checksum;
    std::optional<std::array<int, 3>> deflate; // shuffle, deflate, level
    std::optional<int> externalType;           // of a variable
    std::optional<int> rank;                   // of a variable
    std::optional<int> idCount;                // of a list of identifiers
    std::optional<std::size_t> dimensionLength;
    std::optional<std::size_t> attributeLength;
    std::optional<std::size_t> groupPathLength;
};

} // namespace testsupport
