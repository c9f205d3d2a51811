// SPDX-License-Identifier: BSD-3-Clause
#include "cf/ascii_text.h"

#include <algorithm>

namespace Ovard::gridio::cf {

std::string_view trimmed(std::string_view text)
{
    while (!text.empty() && isBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && isBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string lowered(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return result;
}

std::string inQuotes(std::string_view text)
{
    constexpr std::size_t longest = 60;
    std::string result(text.substr(0, longest));
    std::replace_if(
        result.begin(), result.end(),
        [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; }, '?');
    return '"' + result + (text.size() > longest ? "...\"" : "\"");
}

} // namespace Ovard::gridio::cf
