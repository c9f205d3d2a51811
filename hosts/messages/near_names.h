// SPDX-License-Identifier: BSD-3-Clause
// The existing names that a misspelt one may mean.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// The same name in other letter case; otherwise at most three that differ from the word in few
// characters, contain it or are contained in it, the nearest first. Two characters in the wrong
// order count as one difference.
std::vector<std::string> nearNames(std::string_view word, const std::vector<std::string>& names);

} // namespace hosts::messages
