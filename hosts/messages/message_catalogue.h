// SPDX-License-Identifier: BSD-3-Clause
// The texts of every error and warning of the module, shared by the hosts.
#pragma once

#include "hosts/messages/call_context.h"
#include "hosts/messages/call_messages.h"

#include "vx/error.h"

#include <string>
#include <vector>

namespace hosts::messages {

// The text of an identifier with its arguments filled in, in the narrow encoding, with control
// characters escaped. If the call that raised it is given, the text also names its file and
// variable and the findings; these inquiries change nothing, and if they fail the general text
// remains. An identifier without a text gives the identifier followed by its arguments.
std::string messageText(const msgcat::BaseMsgID& id, const CallContext* call = nullptr);

// The general texts, one for each identifier of the module.
std::vector<MessageTemplate> generalTemplates();

} // namespace hosts::messages
