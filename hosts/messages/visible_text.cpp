// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/visible_text.h"

#include <array>
#include <cmath>
#include <cstdio>
#include <iterator>

namespace hosts::messages {

namespace {

constexpr std::size_t longestQuotation = 200; // in bytes

unsigned char byteAt(std::string_view text, std::size_t i)
{
    return static_cast<unsigned char>(text[i]);
}

// Bytes of the UTF-8 character that begins the text; 1 for a byte that begins none.
std::size_t characterLength(std::string_view text)
{
    const unsigned char lead = byteAt(text, 0);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || text.size() < length)
        return 1;
    for (std::size_t i = 1; i < length; ++i)
        if ((byteAt(text, i) & 0xC0) != 0x80)
            return 1;
    return length;
}

bool isControl(unsigned char byte) { return byte < 0x20 || (byte >= 0x7F && byte <= 0x9F); }

void appendEscaped(std::string& text, unsigned char byte)
{
    if (byte == 0) {
        text += "\\0";
        return;
    }
    constexpr char digits[] = "0123456789ABCDEF";
    text.append("\\x").append(1, digits[byte / 16]).append(1, digits[byte % 16]);
}

} // namespace

std::string visible(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        const unsigned char first = byteAt(text, 0);
        if (length == 1 && isControl(first))
            appendEscaped(result, first);
        else if (length == 2 && first == 0xC2 && isControl(byteAt(text, 1)))
            appendEscaped(result, byteAt(text, 1));
        else
            result.append(text.substr(0, length));
        text.remove_prefix(length);
    }
    return result;
}

std::string inQuotes(std::string_view text)
{
    if (text.size() <= longestQuotation)
        return '"' + visible(text) + '"';
    std::size_t length = longestQuotation;
    constexpr std::size_t longestCharacter = 4;
    while (length > longestQuotation - longestCharacter && (byteAt(text, length) & 0xC0) == 0x80)
        --length; // no character is cut in two
    return '"' + visible(text.substr(0, length)) + "...\"";
}

std::string counted(std::size_t count, const std::string& noun)
{
    const std::string number = count == 0 ? "no" : std::to_string(count);
    return number + " " + noun + (count == 1 ? "" : "s");
}

std::string ordinal(std::size_t number)
{
    constexpr const char* words[] = {"first", "second", "third", "fourth", "fifth", "sixth"};
    if (number >= 1 && number <= std::size(words))
        return words[number - 1];
    const std::size_t tens = number % 100;
    const std::size_t ones = tens >= 11 && tens <= 13 ? 0 : number % 10;
    const char* ending = ones == 1 ? "st" : ones == 2 ? "nd" : ones == 3 ? "rd" : "th";
    return std::to_string(number) + ending;
}

std::string numberText(double number)
{
    if (std::isnan(number))
        return "NaN";
    if (std::isinf(number))
        return number < 0 ? "-Inf" : "Inf";
    std::array<char, 40> text{};
    const bool isWhole = number == std::floor(number) && std::fabs(number) < 1e15;
    std::snprintf(text.data(), text.size(), isWhole ? "%.0f" : "%.6g", number);
    return number == 0 ? "0" : text.data();
}

} // namespace hosts::messages
