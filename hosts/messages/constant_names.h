// SPDX-License-Identifier: BSD-3-Clause
// The names of the constants that the operation "parameter" knows.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// As "getConstantNames" lists them; a test compares both.
std::vector<std::string> constantNames();

// The constants that a misspelt name may mean, with or without "NC_".
std::vector<std::string> nearConstantNames(std::string_view name);

} // namespace hosts::messages
