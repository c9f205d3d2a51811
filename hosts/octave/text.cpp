// SPDX-License-Identifier: BSD-3-Clause
// Text. The interpreter's characters are bytes: each becomes one unit, 0 to 255, and each unit
// gives its low byte back, so that names and data pass unchanged in whatever encoding the script
// has them.
#include "vx/text.h"

#include "array.h"
#include "call.h"

#include <cstdlib>
#include <cstring>
#include <new>

namespace hosts::oct {

namespace {

char lowByte(char16_t unit) { return static_cast<char>(static_cast<unsigned char>(unit & 0xFF)); }

} // namespace

const char* textBytes(vxArray& array)
{
    if (!array.source)
        return nullptr;
    if (const void* bytes = array.kind->share(*array.source))
        return static_cast<const char*>(bytes);
    array.source = &array.held.emplace(array.kind->full(*array.source));
    return static_cast<const char*>(array.kind->share(*array.source));
}

char16_t* textUnits(vxArray& array)
{
    if (!array.data && array.count > 0) {
        const char* bytes = textBytes(array);
        auto* units =
            static_cast<char16_t*>(Call::current().allocate(array.count * sizeof(char16_t)));
        for (size_t i = 0; i < array.count; ++i)
            units[i] = static_cast<unsigned char>(bytes[i]);
        array.data = units;
    }
    return static_cast<char16_t*>(array.data);
}

void narrowText(const char16_t* units, size_t count, char* bytes)
{
    for (size_t i = 0; i < count; ++i)
        bytes[i] = lowByte(units[i]);
}

} // namespace hosts::oct

using hosts::oct::Call;

char* vxArrayToString(const vxArray* array)
{
    if (!array || vxGetClassID(array) != vxCHAR_CLASS)
        return nullptr;
    vxArray& text = hosts::oct::examined(array);
    const size_t bytes = text.count + 1;
    auto* result = static_cast<char*>(Call::current().allocateInline(bytes));
    if (!result)
        result = static_cast<char*>(std::malloc(bytes));
    if (!result)
        throw std::bad_alloc();
    vxGetCharBytes(array, result);
    result[text.count] = '\0';
    return result;
}

void vxGetCharBytes(const vxArray* array, char* bytes)
{
    vxArray& text = hosts::oct::examined(array);
    if (text.data)
        hosts::oct::narrowText(static_cast<const char16_t*>(text.data), text.count, bytes);
    else if (text.count > 0)
        std::memcpy(bytes, hosts::oct::textBytes(text), text.count);
}

std::u16string_view vxGetText(const vxArray* array)
{
    vxArray& text = hosts::oct::examined(array);
    return {hosts::oct::textUnits(text), text.count};
}

namespace fnd::filesystem {

std::string codecvt_ustring_to_narrow_string::operator()(std::u16string_view text) const
{
    std::string bytes(text.size(), '\0');
    hosts::oct::narrowText(text.data(), text.size(), bytes.data());
    return bytes;
}

} // namespace fnd::filesystem
