// SPDX-License-Identifier: BSD-3-Clause
// Memory that the module asks for and releases by itself.
#include "hosts/minimal/array.h"

#include "vx/text.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>

void* vxCalloc(size_t count, size_t size)
{
    if (size != 0 && count > PTRDIFF_MAX / size)
        throw std::bad_alloc();
    void* const memory = std::calloc(1, std::max<size_t>(count * size, 1)); // null is no answer
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

void vxFree(void* memory) { std::free(memory); }

char* vxArrayToString(const vxArray* array)
{
    if (array->classId != vxCHAR_CLASS)
        return nullptr;
    const std::string text = fnd::filesystem::codecvt_ustring_to_narrow_string()(vxGetText(array));
    char* const copy = static_cast<char*>(vxCalloc(text.size() + 1, 1));
    std::memcpy(copy, text.data(), text.size());
    return copy;
}
