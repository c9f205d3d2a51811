// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/byte_planes.h"

#include <algorithm>
#include <cstring>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace Ovard::gridio {
namespace {

// No number has any other size.
constexpr std::size_t largestSize = 8;

#ifdef __SSE2__

constexpr std::size_t width = 16; // elements that are processed at once, and bytes of a vector

// Takes 16 elements as one row of bytes, and interleaves the two halves of the row. That rotates
// the bits of each byte's position by one. A position has 4 + log2(size) bits; the byte's number
// within its element is the upper log2(size) bits in planes and the lower ones in elements. So
// log2(size) steps convert planes to elements, and 4 more convert back.
template <std::size_t size, std::size_t steps> void rotatePositions(__m128i (&row)[size])
{
    for (std::size_t step = 0; step < steps; ++step) {
        __m128i next[size];
        for (std::size_t i = 0; i < size / 2; ++i) {
            next[2 * i] = _mm_unpacklo_epi8(row[i], row[i + size / 2]);
            next[2 * i + 1] = _mm_unpackhi_epi8(row[i], row[i + size / 2]);
        }
        std::copy(next, next + size, row);
    }
}

constexpr std::size_t logarithm(std::size_t size)
{
    return size == 1 ? 0 : 1 + logarithm(size / 2);
}

// Returns how many elements were processed.
template <std::size_t size>
std::size_t joinVectors(const unsigned char* const planes[], std::size_t count,
                        unsigned char* elements)
{
    std::size_t done = 0;
    for (; count - done >= width; done += width) {
        __m128i row[size];
        for (std::size_t b = 0; b < size; ++b)
            std::memcpy(&row[b], planes[b] + done, width);
        rotatePositions<size, logarithm(size)>(row);
        std::memcpy(elements + done * size, row, sizeof row);
    }
    return done;
}

template <std::size_t size>
std::size_t splitVectors(const unsigned char* elements, std::size_t count, unsigned char* planes)
{
    std::size_t done = 0;
    for (; count - done >= width; done += width) {
        __m128i row[size];
        std::memcpy(row, elements + done * size, sizeof row);
        rotatePositions<size, 4>(row);
        for (std::size_t b = 0; b < size; ++b)
            std::memcpy(planes + b * count + done, &row[b], width);
    }
    return done;
}

#else

template <std::size_t size>
std::size_t joinVectors(const unsigned char* const[], std::size_t, unsigned char*)
{
    return 0;
}

template <std::size_t size>
std::size_t splitVectors(const unsigned char*, std::size_t, unsigned char*)
{
    return 0;
}

#endif

std::size_t joinVectors(const unsigned char* const planes[], std::size_t count, std::size_t size,
                        unsigned char* elements)
{
    switch (size) {
    case 2:
        return joinVectors<2>(planes, count, elements);
    case 4:
        return joinVectors<4>(planes, count, elements);
    case 8:
        return joinVectors<8>(planes, count, elements);
    default:
        return 0;
    }
}

std::size_t splitVectors(const unsigned char* elements, std::size_t count, std::size_t size,
                         unsigned char* planes)
{
    switch (size) {
    case 2:
        return splitVectors<2>(elements, count, planes);
    case 4:
        return splitVectors<4>(elements, count, planes);
    case 8:
        return splitVectors<8>(elements, count, planes);
    default:
        return 0;
    }
}

} // namespace

void shuffleBytes(const unsigned char* elements, std::size_t count, std::size_t size,
                  unsigned char* planes)
{
    const std::size_t done = splitVectors(elements, count, size, planes);
    for (std::size_t b = 0; b < size; ++b) {
        for (std::size_t i = done; i < count; ++i)
            planes[b * count + i] = elements[i * size + b];
    }
}

void unshuffleBytes(const unsigned char* planes, std::size_t count, std::size_t size,
                    unsigned char* elements)
{
    if (size <= largestSize) {
        unshuffleRun(planes, count, 0, count, size, false, elements);
        return;
    }
    for (std::size_t b = 0; b < size; ++b) {
        for (std::size_t i = 0; i < count; ++i)
            elements[i * size + b] = planes[b * count + i];
    }
}

void unshuffleRun(const unsigned char* planes, std::size_t planeLength, std::size_t first,
                  std::size_t count, std::size_t size, bool isSwapped, unsigned char* elements)
{
    const unsigned char* sources[largestSize] = {};
    for (std::size_t b = 0; b < size; ++b)
        sources[b] = planes + (isSwapped ? size - 1 - b : b) * planeLength + first;
    const std::size_t done = joinVectors(sources, count, size, elements);
    for (std::size_t b = 0; b < size; ++b) {
        for (std::size_t i = done; i < count; ++i)
            elements[i * size + b] = sources[b][i];
    }
}

} // namespace Ovard::gridio
