// SPDX-License-Identifier: BSD-3-Clause
// Findings about a call that gridio itself refused before it called the library.
#pragma once

#include "hosts/messages/call_context.h"

#include <string>
#include <string_view>

namespace hosts::messages {

// Sentences to be added to the message of the identifier, each on its own line: the argument given,
// and the file and variable of the call. Empty when nothing was found.
std::string argumentFinding(std::string_view identifier, const FailedCall& call);

} // namespace hosts::messages
