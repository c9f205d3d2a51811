// SPDX-License-Identifier: BSD-3-Clause
// The lines that follow the library's own words when it refused a call.
#pragma once

#include "hosts/messages/call_context.h"

#include <string>

namespace hosts::messages {

// What was found out about the call, what to do, and what the call was about: each on a line of its
// own, or left out. Without a call, what to do alone. Empty when there is nothing to say.
std::string libraryFailureLines(const std::string& codeName, const FailedCall* call);

} // namespace hosts::messages
