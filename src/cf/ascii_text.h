// SPDX-License-Identifier: BSD-3-Clause
// Text of attributes and of users, treated as ASCII whatever the locale.
#pragma once

#include <string>
#include <string_view>

namespace Ovard::gridio::cf {

constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

constexpr bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

// A blank, a control character, or the NUL that pads text attributes.
constexpr bool isBlank(char c) { return static_cast<unsigned char>(c) <= ' '; }

// The text without the blanks at its ends.
std::string_view trimmed(std::string_view text);

// The text with its ASCII letters in lower case.
std::string lowered(std::string_view text);

// The text in double quotes, for error reasons: at most 60 bytes, with control characters as "?".
std::string inQuotes(std::string_view text);

} // namespace Ovard::gridio::cf
