// SPDX-License-Identifier: BSD-3-Clause
// Conversion between UTF-16 and UTF-8, and the vx functions for text.
#include "hosts/standalone/text.h"

#include "hosts/standalone/array.h"

#include "vx/text.h"

#include <algorithm>
#include <cstddef>

namespace standalone {

namespace {

constexpr char32_t replacement = 0xFFFD;

bool isHighSurrogate(char32_t unit) { return unit >= 0xD800 && unit <= 0xDBFF; }
bool isLowSurrogate(char32_t unit) { return unit >= 0xDC00 && unit <= 0xDFFF; }

void appendUtf8(std::string& text, char32_t c)
{
    const auto append = [&text](char32_t byte) { text += static_cast<char>(byte); };
    if (c < 0x80) {
        append(c);
    } else if (c < 0x800) {
        append(0xC0 | (c >> 6));
        append(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        append(0xE0 | (c >> 12));
        append(0x80 | ((c >> 6) & 0x3F));
        append(0x80 | (c & 0x3F));
    } else {
        append(0xF0 | (c >> 18));
        append(0x80 | ((c >> 12) & 0x3F));
        append(0x80 | ((c >> 6) & 0x3F));
        append(0x80 | (c & 0x3F));
    }
}

void appendUtf16(std::u16string& text, char32_t c)
{
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
}

struct Decoded {
    char32_t character;
    std::size_t bytes;
};

// The first character of the text. A malformed one takes a single byte.
Decoded decodeFirst(std::string_view text)
{
    const auto byte = [text](std::size_t i) -> char32_t {
        return static_cast<unsigned char>(text[i]);
    };
    const char32_t lead = byte(0);
    if (lead < 0x80)
        return {lead, 1};

    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC0 || lead > 0xF7 || text.size() < length)
        return {replacement, 1};
    char32_t c = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80)
            return {replacement, 1};
        c = (c << 6) | (byte(i) & 0x3F);
    }

    constexpr char32_t lowest[] = {0, 0, 0x80, 0x800, 0x10000}; // lowest code point of each length
    const bool surrogate = c >= 0xD800 && c <= 0xDFFF;
    if (c < lowest[length] || c > 0x10FFFF || surrogate)
        return {replacement, 1};
    return {c, length};
}

} // namespace

std::string toUtf8(std::u16string_view units)
{
    std::string text;
    text.reserve(units.size());
    for (std::size_t i = 0; i < units.size(); ++i) {
        const char32_t unit = units[i];
        if (isHighSurrogate(unit) && i + 1 < units.size() && isLowSurrogate(units[i + 1])) {
            appendUtf8(text, 0x10000 + ((unit - 0xD800) << 10) + (units[i + 1] - 0xDC00u));
            ++i;
        } else if (isHighSurrogate(unit) || isLowSurrogate(unit)) {
            appendUtf8(text, replacement);
        } else {
            appendUtf8(text, unit);
        }
    }
    return text;
}

std::u16string toUtf16(std::string_view utf8)
{
    std::u16string units;
    units.reserve(utf8.size());
    while (!utf8.empty()) {
        const Decoded first = decodeFirst(utf8);
        appendUtf16(units, first.character);
        utf8.remove_prefix(first.bytes);
    }
    return units;
}

} // namespace standalone

std::u16string_view vxGetText(const vxArray* array)
{
    if (array->count == 0)
        return {};
    return {static_cast<const char16_t*>(array->elements.get()), array->count};
}

void vxGetCharBytes(const vxArray* array, char* bytes)
{
    const std::u16string_view units = vxGetText(array);
    std::transform(units.begin(), units.end(), bytes,
                   [](char16_t unit) { return static_cast<char>(unit & 0xFF); });
}

std::string
fnd::filesystem::codecvt_ustring_to_narrow_string::operator()(std::u16string_view text) const
{
    return standalone::toUtf8(text);
}
