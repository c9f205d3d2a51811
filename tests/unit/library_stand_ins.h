// SPDX-License-Identifier: BSD-3-Clause
// Three functions outside the module that the linker lets this executable stand in for: what they
// do on demand, and what they were asked.
#pragma once

#include <map>
#include <string>
#include <vector>

namespace testsupport {

// While one exists, nc_close closes nothing and answers as told; nc_strerror knows the texts given;
// operator new has no memory when told so. At most one at a time.
class LibraryStandIn {
public:
    LibraryStandIn();
    ~LibraryStandIn();
    LibraryStandIn(const LibraryStandIn&) = delete;
    LibraryStandIn& operator=(const LibraryStandIn&) = delete;

    std::vector<int> closed;                // identifiers, in the order in which they came
    std::map<int, int> closeStatus;         // by identifier; 0 for the others
    std::map<int, std::string> statusTexts; // by status; the library's for the others
    bool hasMemory = true;
};

} // namespace testsupport
