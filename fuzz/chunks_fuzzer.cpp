// SPDX-License-Identifier: BSD-3-Clause
// Undoes the filters of a chunk that may be damaged in any way: either the elements are returned,
// or DamagedChunk is thrown.
//
// The input: size of elements, their number, number of filters, the filters with their
// parameters, which of them were skipped; then the bytes of the chunk.
#include "fuzz/input_bytes.h"

#include "chunks/filter_pipeline.h"

#include <cstdint>
#include <cstdlib>
#include <vector>

namespace fuzz {
namespace {

using namespace Ovard::gridio;

constexpr std::size_t elementSizes[] = {1, 2, 4, 8};
constexpr unsigned filterIds[] = {fletcher32Filter, shuffleFilter, deflateFilter, zstdFilter,
                                  bloscFilter,      lz4Filter,     bzip2Filter,   szipFilter};
constexpr std::size_t filterLimit = 4;

Filter anyFilter(InputBytes& input)
{
    Filter filter{input.oneOf(filterIds), {}};
    for (std::size_t i = input.below(6); i > 0; --i)
        filter.parameters.push_back(input.byte());
    return filter;
}

// Each byte is read, so that a sanitizer detects uninitialised bytes and reads past the end.
void require(const ChunkElements& elements, std::size_t size)
{
    static volatile unsigned char sum = 0;
    for (std::size_t i = 0; i < size; ++i)
        sum = static_cast<unsigned char>(sum + elements.bytes[i]);
}

void decode(InputBytes& input)
{
    const std::size_t elementSize = input.oneOf(elementSizes);
    const std::size_t chunkSize = elementSize * (1 + input.byte() * std::size_t{8});
    std::vector<Filter> filters(input.below(filterLimit + 1));
    for (Filter& filter : filters)
        filter = anyFilter(input);
    const auto skipped = static_cast<std::uint32_t>(input.byte());
    const auto pipeline = FilterPipeline::make(filters, chunkSize, elementSize);
    if (!pipeline)
        return;
    const std::string_view rest = input.take(static_cast<std::size_t>(-1));
    // Of the exact size, for the address sanitizer.
    const std::vector<unsigned char> stored(rest.begin(), rest.end());
    std::vector<unsigned char> direct(chunkSize);
    ChunkDecoder decoder(*pipeline);
    for (unsigned char* destination : {static_cast<unsigned char*>(nullptr), direct.data()}) {
        try {
            const ChunkElements elements =
                decoder.decode(stored.data(), stored.size(), skipped, destination);
            if (elements.planeLength != 0 && elements.planeLength * elementSize != chunkSize)
                std::abort();
            require(elements, chunkSize);
        } catch (const DamagedChunk&) {
        }
    }
}

} // namespace
} // namespace fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t count)
{
    fuzz::InputBytes input(bytes, count);
    fuzz::decode(input);
    return 0;
}
