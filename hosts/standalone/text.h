// SPDX-License-Identifier: BSD-3-Clause
// UTF-16, the text of arrays, and UTF-8, this host's narrow encoding. Neither conversion ever
// fails: malformed input becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace standalone {

std::string toUtf8(std::u16string_view units);
std::u16string toUtf16(std::string_view utf8);

} // namespace standalone
