// SPDX-License-Identifier: BSD-3-Clause
// What a reader can do about a status of the netCDF library.
#pragma once

#include <string>
#include <vector>

namespace hosts::messages {

// One or two sentences for the name of a status ("NC_EEDGE", or "2" for a system error); null if
// there is nothing to add to the library's own message.
const char* statusAdvice(const std::string& codeName);

// All of it, as the manual lists it. A row without the name of a status is the heading of those
// that follow.
struct StatusAdvice {
    const char* codeName;
    const char* text;
};
std::vector<StatusAdvice> everyStatusAdvice();

} // namespace hosts::messages
