// SPDX-License-Identifier: BSD-3-Clause
// Text. This interpreter's characters are bytes, so that the narrow form of a unit is its low byte.
#include "vx/text.h"

#include "hosts/minimal/array.h"

#include <algorithm>

namespace {

char lowByte(char16_t unit) { return static_cast<char>(unit & 0xFF); }

} // namespace

std::u16string_view vxGetText(const vxArray* array)
{
    return {static_cast<const char16_t*>(array->elements.get()), array->count};
}

void vxGetCharBytes(const vxArray* array, char* bytes)
{
    const std::u16string_view units = vxGetText(array);
    std::transform(units.begin(), units.end(), bytes, lowByte);
}

std::string
fnd::filesystem::codecvt_ustring_to_narrow_string::operator()(std::u16string_view text) const
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(), lowByte);
    return bytes;
}
