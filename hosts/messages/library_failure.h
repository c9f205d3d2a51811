// SPDX-License-Identifier: BSD-3-Clause
// The lines that follow the library's own text when it refused a call.
#pragma once

#include "hosts/messages/call_context.h"

#include <string>

namespace hosts::messages {

// The findings, the advice, and the file and variable of the call, each on its own line or left
// out. Without a call, only the advice. May be empty.
std::string libraryFailureLines(const std::string& codeName, const FailedCall* call);

} // namespace hosts::messages
