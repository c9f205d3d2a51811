// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/filter_pipeline.h"

#include "tests/support/chunk_filters.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

using testsupport::applyFilters;
using testsupport::filterFor;
using Filters = std::vector<Filter>;

constexpr std::size_t elementSize = 4;
constexpr std::size_t elementCount = 300;
constexpr std::size_t chunkSize = elementCount * elementSize;

// Increasing numbers, which every filter compresses.
std::string someElements()
{
    std::string bytes(chunkSize, '\0');
    for (std::size_t i = 0; i < elementCount; ++i)
        bytes[i * elementSize] = static_cast<char>(i / 3);
    return bytes;
}

const unsigned char* bytesOf(const std::string& text)
{
    return static_cast<const unsigned char*>(static_cast<const void*>(text.data()));
}

FilterPipeline pipelineOf(const Filters& filters)
{
    auto pipeline = FilterPipeline::make(filters, chunkSize, elementSize);
    EXPECT_TRUE(pipeline);
    return *pipeline;
}

// Contiguous, whether they are stored as planes or not.
std::string joined(const ChunkElements& elements)
{
    std::string bytes(chunkSize, '\0');
    for (std::size_t i = 0; i < chunkSize; ++i) {
        const std::size_t planeLength = elements.planeLength;
        const std::size_t from =
            planeLength == 0 ? i : i % elementSize * planeLength + i / elementSize;
        bytes[i] = static_cast<char>(elements.bytes[from]);
    }
    return bytes;
}

std::string decoded(const FilterPipeline& pipeline, const std::string& stored,
                    std::uint32_t skipped = 0)
{
    ChunkDecoder decoder(pipeline);
    return joined(decoder.decode(bytesOf(stored), stored.size(), skipped));
}

std::vector<Filters> allPipelines()
{
    std::vector<Filters> pipelines{{}};
    const Filter shuffle = filterFor(shuffleFilter, elementSize);
    const Filter checksum = filterFor(fletcher32Filter, elementSize);
    pipelines.push_back({shuffle});
    pipelines.push_back({checksum});
    pipelines.push_back({checksum, shuffle, checksum});
    for (const unsigned id : testsupport::testCodecs()) {
        const Filter codec = filterFor(id, elementSize);
        pipelines.push_back({codec});
        pipelines.push_back({shuffle, codec});
        pipelines.push_back({shuffle, codec, checksum});
        pipelines.push_back({codec, shuffle, checksum});
        if (id != szipFilter) // which counts elements
            pipelines.push_back({checksum, shuffle, codec});
    }
    return pipelines;
}

std::string show(const Filters& filters)
{
    std::string text;
    for (const Filter& filter : filters)
        text += std::to_string(filter.id) + ' ';
    return text;
}

TEST(ChunkDecoder, UndoesFiltersInAnyOrder)
{
    const std::string elements = someElements();
    for (const Filters& filters : allPipelines())
        EXPECT_EQ(decoded(pipelineOf(filters), applyFilters(filters, elements)), elements)
            << show(filters);
}

TEST(ChunkDecoder, LeavesOutFiltersThatWereSkipped)
{
    const std::string elements = someElements();
    for (const Filters& filters : allPipelines()) {
        for (std::uint32_t skipped = 0; skipped < 1U << filters.size(); ++skipped)
            EXPECT_EQ(
                decoded(pipelineOf(filters), applyFilters(filters, elements, skipped), skipped),
                elements)
                << show(filters) << ", without " << skipped;
    }
}

TEST(ChunkDecoder, GivesPlanesWhereTheShuffleFilterIsUndoneLast)
{
    const Filters filters = {filterFor(shuffleFilter, elementSize)};
    const FilterPipeline pipeline = pipelineOf(filters);
    ChunkDecoder decoder(pipeline);
    const std::string stored = applyFilters(filters, someElements());
    EXPECT_EQ(decoder.decode(bytesOf(stored), stored.size(), 0).planeLength, elementCount);
    EXPECT_EQ(decoder.decode(bytesOf(stored), stored.size(), 1).planeLength, 0U);
}

TEST(ChunkDecoder, DecompressesToWhereTheElementsBelong)
{
    const std::string elements = someElements();
    for (const unsigned id : testsupport::testCodecs()) {
        const Filter codec = filterFor(id, elementSize);
        for (const Filters& filters :
             {Filters{codec}, Filters{codec, filterFor(fletcher32Filter, elementSize)},
              Filters{filterFor(shuffleFilter, elementSize), codec}}) {
            const FilterPipeline pipeline = pipelineOf(filters);
            ChunkDecoder decoder(pipeline);
            const std::string stored = applyFilters(filters, elements);
            std::vector<unsigned char> direct(chunkSize, 0);
            const ChunkElements got =
                decoder.decode(bytesOf(stored), stored.size(), 0, direct.data());
            EXPECT_EQ(got.bytes == direct.data(), got.planeLength == 0) << show(filters);
            EXPECT_EQ(joined(got), elements) << show(filters);
        }
    }
}

// Any stored bytes give a chunk or throw.
TEST(ChunkDecoder, ThrowsForDamagedBytes)
{
    std::mt19937 engine(1);
    const std::string elements = someElements();
    for (const Filters& filters : allPipelines()) {
        const FilterPipeline pipeline = pipelineOf(filters);
        const std::string stored = applyFilters(filters, elements);
        ChunkDecoder decoder(pipeline);
        for (std::size_t size = 0; size < stored.size(); size += 1 + size / 8) {
            if (filters.size() == 1 && filters[0].id == fletcher32Filter && size == chunkSize)
                continue;
            try {
                decoder.decode(bytesOf(stored), size, 0);
                ADD_FAILURE() << show(filters) << "cut to " << size;
            } catch (const DamagedChunk&) {
            }
        }
        for (int round = 0; round < 200; ++round) {
            std::string damaged = stored;
            damaged[engine() % damaged.size()] ^= static_cast<char>(1 << engine() % 8);
            try {
                decoder.decode(bytesOf(damaged), damaged.size(), 0);
            } catch (const DamagedChunk&) {
            }
        }
    }
}

TEST(ChunkDecoder, ThrowsForAChangedByteUnderAChecksum)
{
    const Filters filters = {filterFor(fletcher32Filter, elementSize)};
    std::string stored = applyFilters(filters, someElements());
    stored[100] ^= 1;
    EXPECT_THROW(decoded(pipelineOf(filters), stored), DamagedChunk);
}

#ifdef GRIDIO_HAS_LIBDEFLATE
TEST(ChunkDecoder, ThrowsForAnotherSizeThanThatOfTheChunk)
{
    const Filters filters = {filterFor(deflateFilter, elementSize)};
    for (const std::size_t size : {chunkSize - 1, chunkSize + 1, 10 * chunkSize, std::size_t{0}})
        EXPECT_THROW(decoded(pipelineOf(filters), applyFilters(filters, std::string(size, 'x'))),
                     DamagedChunk)
            << size;
    EXPECT_THROW(decoded(pipelineOf({}), std::string(chunkSize - 1, 'x')), DamagedChunk);
    EXPECT_THROW(decoded(pipelineOf({}), std::string(chunkSize + 1, 'x')), DamagedChunk);
}

TEST(ChunkDecoder, IgnoresWhatFollowsCompressedBytesAsHdf5Does)
{
    const Filters filters = {filterFor(deflateFilter, elementSize)};
    EXPECT_EQ(decoded(pipelineOf(filters), applyFilters(filters, someElements()) + "rubbish"),
              someElements());
}
#endif

TEST(FilterPipeline, KnowsNoOtherFilters)
{
    for (const unsigned id : {5U, 6U, 305U, 32008U, 32013U, 65535U})
        EXPECT_FALSE(FilterPipeline::make({{id, {}}}, chunkSize, elementSize)) << id;
}

TEST(FilterPipeline, LeavesTwoCompressionsAlone)
{
    for (const unsigned id : testsupport::testCodecs()) {
        const Filter codec = filterFor(id, elementSize);
        EXPECT_FALSE(FilterPipeline::make({codec, codec}, chunkSize, elementSize)) << id;
    }
}

TEST(FilterPipeline, LeavesSenselessParametersAlone)
{
    EXPECT_FALSE(FilterPipeline::make({{shuffleFilter, {}}}, chunkSize, elementSize));
    EXPECT_FALSE(FilterPipeline::make({{shuffleFilter, {0}}}, chunkSize, elementSize));
#ifdef GRIDIO_HAS_LIBAEC
    for (const std::vector<unsigned>& parameters :
         std::vector<std::vector<unsigned>>{{},
                                            {0, 8, 32},
                                            {0, 0, 32, 64},
                                            {0, 8, 65, 64},
                                            {0, 7, 32, 64},
                                            {0, 8, 32, 0},
                                            {0, 8, 32, 4096}})
        EXPECT_FALSE(FilterPipeline::make({{szipFilter, parameters}}, chunkSize, elementSize));
#endif
}

TEST(FilterPipeline, HasAtMostAsManyFiltersAsAChunkHasBits)
{
    const Filter checksum = filterFor(fletcher32Filter, elementSize);
    EXPECT_TRUE(FilterPipeline::make(Filters(32, checksum), chunkSize, elementSize));
    EXPECT_FALSE(FilterPipeline::make(Filters(33, checksum), chunkSize, elementSize));
}

TEST(ChunkEncoder, MakesWhatADecoderUndoes)
{
    const std::string elements = someElements();
    std::size_t encoded = 0;
    for (const Filters& filters : allPipelines()) {
        const FilterPipeline pipeline = pipelineOf(filters);
        if (!ChunkEncoder::canEncode(pipeline))
            continue;
        ++encoded;
        ChunkEncoder encoder(pipeline);
        ByteBuffer stored;
        for (int round = 0; round < 2; ++round) { // the second one with memory of the first
            std::copy(elements.begin(), elements.end(), encoder.elements());
            const std::size_t size = encoder.encode(stored);
            ChunkDecoder decoder(pipeline);
            EXPECT_EQ(joined(decoder.decode(stored.data(), size, 0)), elements) << show(filters);
        }
    }
    EXPECT_GE(encoded, 4U);
}

TEST(ChunkEncoder, AppliesNoCodecButDeflate)
{
    for (const unsigned id : testsupport::testCodecs())
        EXPECT_EQ(ChunkEncoder::canEncode(pipelineOf({filterFor(id, elementSize)})),
                  id == deflateFilter);
}

#ifdef GRIDIO_HAS_LIBDEFLATE
TEST(ChunkEncoder, CompressesAtTheLevelOfTheFilter)
{
    const auto sizeAt = [](unsigned level) {
        const FilterPipeline pipeline = pipelineOf({{deflateFilter, {level}}});
        ChunkEncoder encoder(pipeline);
        const std::string elements = someElements();
        std::copy(elements.begin(), elements.end(), encoder.elements());
        ByteBuffer stored;
        return encoder.encode(stored);
    };
    EXPECT_GT(sizeAt(0), chunkSize);
    EXPECT_LT(sizeAt(1), chunkSize / 2);
    EXPECT_LE(sizeAt(9), sizeAt(1));
    EXPECT_FALSE(ChunkEncoder::canEncode(pipelineOf({{deflateFilter, {10}}})));
    EXPECT_FALSE(ChunkEncoder::canEncode(pipelineOf({{deflateFilter, {}}})));
}
#endif

} // namespace
} // namespace Ovard::gridio
