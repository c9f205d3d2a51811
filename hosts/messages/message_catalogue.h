// SPDX-License-Identifier: BSD-3-Clause
// The texts of every error and warning of the module, shared by the hosts.
#pragma once

#include "vx/error.h"

#include <string>

namespace hosts::messages {

// The text of an identifier with its arguments filled in, in the narrow encoding. An identifier
// without a text of its own gives the identifier followed by its arguments.
std::string messageText(const msgcat::BaseMsgID& id);

} // namespace hosts::messages
