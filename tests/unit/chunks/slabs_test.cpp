// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/slabs.h"

#include <gtest/gtest.h>

namespace Ovard::gridio {
namespace {

TEST(SlabLengths, AreWholeChunksFromTheInnermostDimensionOutwards)
{
    const BlockIndices block{{0, 100, 1}, {0, 60, 1}, {0, 80, 1}};
    const SizeVector chunk{2, 10, 20};
    EXPECT_EQ(slabLengths(block, chunk, 1), chunk) << "at least one chunk";
    EXPECT_EQ(slabLengths(block, chunk, 800), (SizeVector{2, 10, 40}));
    EXPECT_EQ(slabLengths(block, chunk, 1600), (SizeVector{2, 10, 80}));
    EXPECT_EQ(slabLengths(block, chunk, 5000), (SizeVector{2, 30, 80}));
    EXPECT_EQ(slabLengths(block, chunk, 20000), (SizeVector{4, 60, 80}));
    EXPECT_EQ(slabLengths(block, chunk, 1000000), (SizeVector{100, 60, 80}));
}

TEST(SlabLengths, CountOnlyElementsThatTheBlockTakes)
{
    const BlockIndices block{{0, 50, 2}, {5, 1, 1}};
    EXPECT_EQ(slabLengths(block, {1, 1}, 10), (SizeVector{10, 6}));
    EXPECT_EQ(slabLengths(block, {10, 10}, 10), (SizeVector{20, 10}));
}

TEST(SlabOf, IsPartOfTheBlock)
{
    const BlockIndices block{{10, 8, 3}, {4, 5, 1}};
    const Block slab = slabOf(block, {{0, 2, 3, 4}, {0, 5, 1, 0}});
    EXPECT_EQ(slab.start, (SizeVector{22, 4}));
    EXPECT_EQ(slab.count, (SizeVector{2, 5}));
    EXPECT_EQ(slab.stride, (StrideVector{3, 1}));
    EXPECT_FALSE(slab.isWhole);
}

} // namespace
} // namespace Ovard::gridio
