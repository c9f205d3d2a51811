// SPDX-License-Identifier: BSD-3-Clause
// The texts of every error and warning of the module, shared by the hosts.
#pragma once

#include "hosts/messages/call_context.h"

#include "vx/error.h"

#include <string>

namespace hosts::messages {

// The text of an identifier with its arguments filled in, in the narrow encoding, with control
// characters spelled out. With the call that raised it, the text names what it is about and what
// was found out about it; that look changes nothing, and when it fails the general text remains. An
// identifier without a text of its own gives the identifier followed by its arguments.
std::string messageText(const msgcat::BaseMsgID& id, const CallContext* call = nullptr);

} // namespace hosts::messages
