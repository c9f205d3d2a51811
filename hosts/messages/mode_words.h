// SPDX-License-Identifier: BSD-3-Clause
// The words for the mode in which a file is opened or created.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// The mode words that an unknown word may mean: it may be misspelt, or a mode of another program,
// such as "r" or "read".
std::vector<std::string> nearModeWords(std::string_view word);

} // namespace hosts::messages
