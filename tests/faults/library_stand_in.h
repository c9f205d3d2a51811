// SPDX-License-Identifier: BSD-3-Clause
// The library between module and library: while a LibraryStandIn lives, every call that the module
// makes passes through it, and may fail or tell what the library would not.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace faults {

class LibraryStandIn {
public:
    LibraryStandIn();
    ~LibraryStandIn();
    LibraryStandIn(const LibraryStandIn&) = delete;
    LibraryStandIn& operator=(const LibraryStandIn&) = delete;

    // The functions that were called, in order, and the identifiers that nc_close got.
    std::vector<std::string> calls;
    std::vector<int> closed;

    // The n-th call (1: the first) returns that status, and the library is not called.
    std::size_t failingCall = 0;
    int status = 0;

    // What calls that succeed then report in place of the truth.
    std::optional<int> format;
    std::optional<int> storage;
    std::optional<int> checksum;
    std::optional<int> externalType; // of a variable
    std::optional<int> rank;         // of a variable
    std::optional<int> idCount;      // of a list of identifiers
    std::optional<std::size_t> dimensionLength;
    std::optional<std::size_t> attributeLength;
    std::optional<std::size_t> groupPathLength;
};

} // namespace faults
