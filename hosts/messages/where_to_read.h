// SPDX-License-Identifier: BSD-3-Clause
#pragma once

namespace hosts::messages {

// What to do about values that are neither numbers nor characters: strings, and those of an enum,
// variable-length, compound or opaque type.
constexpr const char* whereToReadOtherTypes =
    "The operations read and write numbers and characters only; \"ncdump\" prints such values.";

} // namespace hosts::messages
