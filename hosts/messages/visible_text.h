// SPDX-License-Identifier: BSD-3-Clause
// Safe display of names and texts from scripts and files in messages.
#pragma once

#include <string>
#include <string_view>

namespace hosts::messages {

// Control characters escaped, so that none reaches a terminal: NUL as \0, the others of ASCII and
// DEL as \x1B, and those from U+0080 to U+009F, in UTF-8 or as single bytes, as \x9B. Everything
// else, UTF-8 or not, is unchanged.
std::string visible(std::string_view text);

// The same in quotation marks; a text longer than a line is cut and ends in "...".
std::string inQuotes(std::string_view text);

// '"a", "b" and "c"'; for more than most elements, the first ones and the number of the others.
template <class Names>
std::string quotedNames(const Names& names, std::size_t most, const char* last)
{
    std::string list;
    std::size_t shown = 0;
    for (const auto& name : names) {
        if (shown == most)
            break;
        const bool isLast = shown + 1 == names.size();
        list += shown == 0 ? "" : isLast ? std::string(" ") + last + " " : ", ";
        list += inQuotes(name);
        ++shown;
    }
    if (shown < names.size())
        list += " and " + std::to_string(names.size() - shown) + " more";
    return list;
}

// "1 argument", "3 arguments", "no arguments".
std::string counted(std::size_t count, const std::string& noun);

// "first", "second", ..., "11th".
std::string ordinal(std::size_t number);

// A number as a script would write it: "12", "0.5", "NaN".
std::string numberText(double number);

} // namespace hosts::messages
