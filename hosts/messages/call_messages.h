// SPDX-License-Identifier: BSD-3-Clause
// The texts of errors whose call is known, which replace the general ones of message_catalogue.cpp.
#pragma once

#include "hosts/messages/call_context.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// A text with {1}, {2}, ... where arguments or findings are filled in.
struct MessageTemplate {
    std::string_view identifier;
    std::string_view text;
};

// The texts below, several for an identifier.
std::vector<MessageTemplate> callTemplates();

// {1}, {2}, ... in the text replaced by the arguments, in one pass, so that a brace inside an
// argument stays a brace.
std::string fillPlaces(std::string_view text, const std::vector<std::string>& arguments);

// The text for the identifier with its arguments, if there is a better one than the general text.
std::optional<std::string> callMessage(std::string_view identifier,
                                       const std::vector<std::string>& arguments,
                                       const FailedCall& call);

} // namespace hosts::messages
