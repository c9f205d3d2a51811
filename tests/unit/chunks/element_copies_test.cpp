// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/element_copies.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numeric>
#include <vector>

namespace Ovard::gridio {
namespace {

using Bytes = std::vector<unsigned char>;

TEST(CopyElements, TakesEachStepAndOrderOfEachSize)
{
    Bytes source(200);
    std::iota(source.begin(), source.end(), static_cast<unsigned char>(0));
    for (const std::size_t size : {1U, 2U, 4U, 8U}) {
        for (const std::size_t step : {1U, 2U, 3U}) {
            for (const bool isSwapped : {false, true}) {
                Bytes copied(5 * size);
                // After an odd byte: elements need not be aligned.
                copyElements(source.data() + 1, size, step, 5, isSwapped, copied.data());
                for (std::size_t i = 0; i < copied.size(); ++i) {
                    const std::size_t b = isSwapped ? size - 1 - i % size : i % size;
                    EXPECT_EQ(copied[i], source[1 + i / size * step * size + b])
                        << size << ' ' << step << ' ' << isSwapped;
                }
            }
        }
    }
}

TEST(CopyElements, SwapsInPlace)
{
    Bytes bytes{1, 2, 3, 4, 5, 6, 7, 8};
    copyElements(bytes.data(), 4, 1, 2, true, bytes.data());
    EXPECT_EQ(bytes, (Bytes{4, 3, 2, 1, 8, 7, 6, 5}));
}

TEST(RepeatElement, FillsAnyNumberOfElements)
{
    const Bytes element{7, 8, 9, 10};
    for (std::size_t count = 0; count < 20; ++count) {
        Bytes filled(count * 4 + 1, 0);
        repeatElement(element.data(), 4, count, filled.data());
        for (std::size_t i = 0; i < count * 4; ++i)
            EXPECT_EQ(filled[i], element[i % 4]);
        EXPECT_EQ(filled.back(), 0);
    }
}

} // namespace
} // namespace Ovard::gridio
