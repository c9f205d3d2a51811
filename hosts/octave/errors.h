// SPDX-License-Identifier: BSD-3-Clause
// From the module's failures to the interpreter's errors.
#pragma once

#include "hosts/messages/call_context.h"

#include "vx/error.h"

namespace hosts::oct {

// Raises the identifier, with its text of the catalogue, as an error of the interpreter. The call's
// arguments are looked at for the text.
[[noreturn]] void raiseMessage(const msgcat::BaseMsgID& id, const messages::CallContext& call);

// Raises what should not have happened: a foreign exception that left the module.
[[noreturn]] void raiseInternal(const char* what);

} // namespace hosts::oct
