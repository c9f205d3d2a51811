// SPDX-License-Identifier: BSD-3-Clause
// What is found out about a call that gridio itself refused before it asked the library.
#pragma once

#include "hosts/messages/call_context.h"

#include <string>
#include <string_view>

namespace hosts::messages {

// Sentences to be added to the message of the identifier, each line on its own: what was given, and
// what the call is about. Empty when nothing was found.
std::string argumentFinding(std::string_view identifier, const FailedCall& call);

} // namespace hosts::messages
