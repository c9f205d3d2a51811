// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/byte_planes.h"

#include "tests/support/chunk_filters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <vector>

namespace Ovard::gridio {
namespace {

using Bytes = std::vector<unsigned char>;

Bytes anyBytes(std::size_t size)
{
    std::mt19937 engine(static_cast<unsigned>(size));
    Bytes bytes(size);
    for (unsigned char& byte : bytes)
        byte = static_cast<unsigned char>(engine());
    return bytes;
}

constexpr std::size_t counts[] = {0, 1, 2, 15, 16, 17, 31, 32, 33, 500};

TEST(ShuffleBytes, MakesPlanesOfTheBytesOfAllElements)
{
    for (std::size_t size = 1; size <= 17; ++size) {
        for (const std::size_t count : counts) {
            const Bytes elements = anyBytes(count * size);
            Bytes planes(elements.size());
            shuffleBytes(elements.data(), count, size, planes.data());
            for (std::size_t i = 0; i < count; ++i) {
                for (std::size_t b = 0; b < size; ++b)
                    ASSERT_EQ(planes[b * count + i], elements[i * size + b])
                        << size << " bytes, " << count << " elements";
            }
        }
    }
}

TEST(UnshuffleBytes, TakesThatBack)
{
    for (std::size_t size = 1; size <= 17; ++size) {
        for (const std::size_t count : counts) {
            const Bytes elements = anyBytes(count * size);
            Bytes planes(elements.size());
            Bytes back(elements.size());
            shuffleBytes(elements.data(), count, size, planes.data());
            unshuffleBytes(planes.data(), count, size, back.data());
            ASSERT_EQ(back, elements) << size << " bytes, " << count << " elements";
        }
    }
}

TEST(UnshuffleRun, TakesAnyRunInEitherByteOrder)
{
    constexpr std::size_t length = 100;
    for (const std::size_t size : {1U, 2U, 3U, 4U, 8U}) {
        const Bytes elements = anyBytes(length * size);
        Bytes planes(elements.size());
        shuffleBytes(elements.data(), length, size, planes.data());
        for (std::size_t first = 0; first < length; first += 7) {
            for (std::size_t count = 0; first + count <= length; count += 9) {
                Bytes run(count * size);
                unshuffleRun(planes.data(), length, first, count, size, false, run.data());
                EXPECT_TRUE(std::equal(run.begin(), run.end(),
                                       elements.begin() + static_cast<long>(first * size)));
                unshuffleRun(planes.data(), length, first, count, size, true, run.data());
                for (std::size_t i = 0; i < count; ++i)
                    std::reverse(run.begin() + static_cast<long>(i * size),
                                 run.begin() + static_cast<long>((i + 1) * size));
                EXPECT_TRUE(std::equal(run.begin(), run.end(),
                                       elements.begin() + static_cast<long>(first * size)));
            }
        }
    }
}

} // namespace
} // namespace Ovard::gridio
