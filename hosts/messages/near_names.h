// SPDX-License-Identifier: BSD-3-Clause
// Which of the names that exist a misspelt one may stand for.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// The same name but for case; else at most three that differ from the word in few characters, hold
// it or are held by it, the nearest first. Two characters in the wrong order count as one
// difference.
std::vector<std::string> nearNames(std::string_view word, const std::vector<std::string>& names);

} // namespace hosts::messages
