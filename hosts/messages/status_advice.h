// SPDX-License-Identifier: BSD-3-Clause
// What a reader can do about a status of the netCDF library.
#pragma once

#include <string>

namespace hosts::messages {

// One or two sentences for the name of a status ("NC_EEDGE", or "2" for a system error); null if
// there is nothing to add to the library's own message.
const char* statusAdvice(const std::string& codeName);

} // namespace hosts::messages
