// SPDX-License-Identifier: BSD-3-Clause
// Conversion of the module's failures to errors of the interpreter.
#pragma once

#include "hosts/messages/call_context.h"

#include "vx/error.h"

namespace hosts::oct {

// Raises the identifier, with its text from the catalogue, as an error of the interpreter. The text
// is composed from the call's arguments.
[[noreturn]] void raiseMessage(const msgcat::BaseMsgID& id, const messages::CallContext& call);

// Raises an internal error: a foreign exception has left the module.
[[noreturn]] void raiseInternal(const char* what);

} // namespace hosts::oct
