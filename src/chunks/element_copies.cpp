// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/element_copies.h"

#include <algorithm>
#include <cstdint>
#include <cstring>

namespace Ovard::gridio {
namespace {

template <class T> T swapped(T value)
{
    if constexpr (sizeof value == 2)
        return __builtin_bswap16(value);
    else if constexpr (sizeof value == 4)
        return __builtin_bswap32(value);
    else if constexpr (sizeof value == 8)
        return __builtin_bswap64(value);
    else
        return value;
}

template <class T>
void copyAll(const unsigned char* source, std::size_t step, std::size_t count, bool isSwapped,
             unsigned char* destination)
{
    for (std::size_t i = 0; i < count; ++i) {
        T value;
        std::memcpy(&value, source + i * step * sizeof value, sizeof value);
        value = isSwapped ? swapped(value) : value;
        std::memcpy(destination + i * sizeof value, &value, sizeof value);
    }
}

} // namespace

void copyElements(const unsigned char* source, std::size_t size, std::size_t step,
                  std::size_t count, bool isSwapped, unsigned char* destination)
{
    if (step == 1 && !isSwapped) {
        std::memmove(destination, source, count * size);
        return;
    }
    switch (size) {
    case 1:
        return copyAll<std::uint8_t>(source, step, count, isSwapped, destination);
    case 2:
        return copyAll<std::uint16_t>(source, step, count, isSwapped, destination);
    case 4:
        return copyAll<std::uint32_t>(source, step, count, isSwapped, destination);
    default:
        return copyAll<std::uint64_t>(source, step, count, isSwapped, destination);
    }
}

// In steps that double.
void repeatElement(const unsigned char* element, std::size_t size, std::size_t count,
                   unsigned char* destination)
{
    if (count == 0)
        return;
    std::memcpy(destination, element, size);
    for (std::size_t done = 1; done < count; done *= 2)
        std::memcpy(destination + done * size, destination, std::min(done, count - done) * size);
}

} // namespace Ovard::gridio
