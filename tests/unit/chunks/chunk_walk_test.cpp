// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_walk.h"

#include <gtest/gtest.h>

#include <random>
#include <set>
#include <vector>

namespace Ovard::gridio {
namespace {

std::size_t positionOf(const SizeVector& index, const SizeVector& lengths)
{
    std::size_t position = 0;
    for (std::size_t i = 0; i < index.size(); ++i)
        position = position * lengths[i] + index[i];
    return position;
}

SizeVector indexOf(std::size_t position, const SizeVector& lengths)
{
    SizeVector index(lengths.size());
    for (std::size_t i = lengths.size(); i-- > 0; position /= lengths[i])
        index[i] = position % lengths[i];
    return index;
}

// Where each element of the block comes from: a chunk, by its origin, and an index in it.
using Source = std::pair<std::vector<std::size_t>, std::size_t>;

std::vector<Source> walked(const BlockIndices& block, const SizeVector& chunk, std::size_t& chunks)
{
    SizeVector counts;
    for (const Indices& indices : block)
        counts.push_back(indices.count);
    std::vector<Source> sources(countOf(block));
    chunks = 0;
    for (ChunkWalk walk(block, chunk); !walk.isDone(); walk.next()) {
        ++chunks;
        std::size_t elements = 0;
        RunWalk(walk.spans(), chunk, counts)
            .forEach(
                [&](std::size_t first, std::size_t step, std::size_t count, std::size_t target) {
                    for (std::size_t i = 0; i < count; ++i) {
                        EXPECT_TRUE(sources.at(target + i).first.empty()) << "visited twice";
                        sources.at(target + i) = {{walk.origin().begin(), walk.origin().end()},
                                                  first + i * step};
                    }
                    elements += count;
                });
        EXPECT_EQ(elements, countOf(walk.spans()));
    }
    return sources;
}

TEST(ChunkWalk, FindsEachElementOfABlockOnceAndInItsChunk)
{
    std::mt19937 engine(1);
    for (int round = 0; round < 3000; ++round) {
        const std::size_t rank = 1 + engine() % 4;
        BlockIndices block;
        SizeVector chunk;
        SizeVector counts;
        for (std::size_t i = 0; i < rank; ++i) {
            block.push_back({engine() % 10, 1 + engine() % 7, 1 + engine() % 2 * (engine() % 5)});
            chunk.push_back(1 + engine() % 6);
            counts.push_back(block.back().count);
        }
        std::size_t chunks = 0;
        const std::vector<Source> sources = walked(block, chunk, chunks);
        std::set<std::vector<std::size_t>> origins;
        for (std::size_t element = 0; element < sources.size(); ++element) {
            const SizeVector target = indexOf(element, counts);
            std::vector<std::size_t> origin;
            SizeVector inChunk;
            for (std::size_t i = 0; i < rank; ++i) {
                const std::size_t index = block[i].at(target[i]);
                origin.push_back(index / chunk[i] * chunk[i]);
                inChunk.push_back(index % chunk[i]);
            }
            ASSERT_EQ(sources[element], Source(origin, positionOf(inChunk, chunk))) << round;
            origins.insert(origin);
        }
        ASSERT_EQ(chunks, origins.size());
        ASSERT_EQ(chunks, chunksMet(block, chunk));
    }
}

TEST(RunWalk, JoinsDimensionsThatAreTakenWhole)
{
    const SizeVector lengths{3, 4, 5};
    const Spans whole{{0, 3, 1, 0}, {0, 4, 1, 0}, {0, 5, 1, 0}};
    RunWalk runs(whole, lengths, lengths);
    EXPECT_TRUE(runs.isOneRun(60));
    EXPECT_EQ(runs.target(), 0U);

    const Spans middle{{1, 1, 1, 2}, {0, 4, 1, 0}, {0, 5, 1, 0}};
    RunWalk middleRun(middle, lengths, lengths);
    EXPECT_TRUE(middleRun.isOneRun(20));
    EXPECT_EQ(middleRun.target(), 40U);

    const Spans part{{0, 3, 1, 0}, {0, 4, 1, 0}, {0, 4, 1, 0}};
    EXPECT_FALSE(RunWalk(part, lengths, lengths).isOneRun(48));
}

TEST(Indices, CountThoseBelowAnEnd)
{
    const Indices indices = {3, 4, 5}; // 3 8 13 18
    const std::size_t below[] = {0, 0, 0, 0, 1, 1, 1, 1, 1, 2};
    for (std::size_t end = 0; end < std::size(below); ++end)
        EXPECT_EQ(indices.countBelow(end), below[end]) << end;
    EXPECT_EQ(indices.countBelow(18), 3U);
    EXPECT_EQ(indices.countBelow(19), 4U);
    EXPECT_EQ(indices.countBelow(1000), 4U);
}

} // namespace
} // namespace Ovard::gridio
