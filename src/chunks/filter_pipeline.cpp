// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/filter_pipeline.h"

#include "chunks/byte_planes.h"
#include "chunks/fletcher32.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

constexpr std::size_t filterLimit = 32; // a chunk has a bit for each

bool isValidShuffle(const Filter& filter)
{
    return filter.parameters.size() == 1 && filter.parameters[0] > 0;
}

std::size_t shuffledSize(const Filter& filter) { return filter.parameters.front(); }

// HDF5 leaves elements of one byte and single elements unchanged, and the bytes after the last
// whole element.
bool hasPlanes(std::size_t elementSize, std::size_t size)
{
    return elementSize > 1 && size / elementSize > 1;
}

} // namespace

std::optional<FilterPipeline> FilterPipeline::make(std::vector<Filter> filters,
                                                   std::size_t chunkSize, std::size_t elementSize)
{
    if (filters.size() > filterLimit)
        return std::nullopt;
    std::size_t codecs = 0;
    for (const Filter& filter : filters) {
        const bool isValid =
            filter.id == fletcher32Filter || (filter.id == shuffleFilter && isValidShuffle(filter));
        if (isValid)
            continue;
        if (!isCodec(filter.id) || ++codecs > 1 || makeDecompressor(filter) == nullptr)
            return std::nullopt;
    }
    return FilterPipeline(std::move(filters), chunkSize, elementSize);
}

FilterPipeline::FilterPipeline(std::vector<Filter> filters, std::size_t chunkSize,
                               std::size_t elementSize)
    : filters_(std::move(filters)), chunkSize_(chunkSize), elementSize_(elementSize)
{
}

const Filter* FilterPipeline::codec() const
{
    const auto found = std::find_if(filters_.begin(), filters_.end(),
                                    [](const Filter& filter) { return isCodec(filter.id); });
    return found == filters_.end() ? nullptr : &*found;
}

ChunkDecoder::ChunkDecoder(const FilterPipeline& pipeline) : pipeline_(pipeline)
{
    if (const Filter* codec = pipeline.codec())
        decompressor_ = makeDecompressor(*codec);
}

ChunkElements ChunkDecoder::decode(const unsigned char* stored, std::size_t size,
                                   std::uint32_t skipped, unsigned char* direct)
{
    const std::vector<Filter>& filters = pipeline_.filters();
    const std::size_t elementSize = pipeline_.elementSize();
    Bytes bytes = {stored, size};
    for (std::size_t i = filters.size(); i-- > 0;) {
        if (!isApplied(i, skipped))
            continue;
        const bool isLastOne = isLast(i, skipped);
        if (filters[i].id == fletcher32Filter) {
            if (!hasValidChecksum(bytes.data, bytes.size))
                throw DamagedChunk();
            bytes.size -= checksumSize;
        } else if (filters[i].id != shuffleFilter) {
            bytes = decompress(bytes, sizeBefore(i, skipped), isLastOne ? direct : nullptr);
        } else if (isLastOne && bytes.size == pipeline_.chunkSize() &&
                   shuffledSize(filters[i]) == elementSize && hasPlanes(elementSize, bytes.size)) {
            return {bytes.data, bytes.size / elementSize};
        } else {
            bytes = unshuffle(bytes, shuffledSize(filters[i]));
        }
    }
    if (bytes.size != pipeline_.chunkSize())
        throw DamagedChunk();
    return {bytes.data, 0};
}

bool ChunkDecoder::isApplied(std::size_t filter, std::uint32_t skipped) const
{
    return (skipped >> filter & 1) == 0;
}

// Whether no other filter is undone after it.
bool ChunkDecoder::isLast(std::size_t filter, std::uint32_t skipped) const
{
    for (std::size_t i = 0; i < filter; ++i) {
        if (isApplied(i, skipped))
            return false;
    }
    return true;
}

// The size that the filter was applied to, if it compresses.
std::size_t ChunkDecoder::sizeBefore(std::size_t filter, std::uint32_t skipped) const
{
    std::size_t size = pipeline_.chunkSize();
    for (std::size_t i = 0; i < filter; ++i) {
        if (pipeline_.filters()[i].id == fletcher32Filter && isApplied(i, skipped))
            size += checksumSize;
    }
    return size;
}

unsigned char* ChunkDecoder::freeBuffer(const unsigned char* used, std::size_t size)
{
    ByteBuffer& buffer = buffers_[0].data() == used ? buffers_[1] : buffers_[0];
    return buffer.reserve(size);
}

ChunkDecoder::Bytes ChunkDecoder::decompress(Bytes bytes, std::size_t size, unsigned char* direct)
{
    unsigned char* destination = direct != nullptr ? direct : freeBuffer(bytes.data, size);
    if (!decompressor_->decompress(bytes.data, bytes.size, destination, size))
        throw DamagedChunk();
    return {destination, size};
}

ChunkDecoder::Bytes ChunkDecoder::unshuffle(Bytes bytes, std::size_t size)
{
    if (!hasPlanes(size, bytes.size))
        return bytes;
    const std::size_t count = bytes.size / size;
    unsigned char* destination = freeBuffer(bytes.data, bytes.size);
    unshuffleBytes(bytes.data, count, size, destination);
    std::memcpy(destination + count * size, bytes.data + count * size, bytes.size - count * size);
    return {destination, bytes.size};
}

bool ChunkEncoder::canEncode(const FilterPipeline& pipeline)
{
    return pipeline.codec() == nullptr || makeCompressor(*pipeline.codec()) != nullptr;
}

ChunkEncoder::ChunkEncoder(const FilterPipeline& pipeline) : pipeline_(pipeline)
{
    if (const Filter* codec = pipeline.codec())
        compressor_ = makeCompressor(*codec);
    for (const Filter& filter : pipeline.filters())
        checksumsSize_ += filter.id == fletcher32Filter ? checksumSize : 0;
    buffers_[0].reserve(pipeline.chunkSize() + checksumsSize_);
}

std::size_t ChunkEncoder::encode(ByteBuffer& stored)
{
    // Filters alternate between the two buffers; compression writes into stored.
    unsigned char* data = elements();
    std::size_t size = pipeline_.chunkSize();
    for (const Filter& filter : pipeline_.filters()) {
        if (filter.id == fletcher32Filter) {
            appendChecksum(data, size);
            size += checksumSize;
        } else if (filter.id == shuffleFilter) {
            const std::size_t count = size / shuffledSize(filter);
            const std::size_t done = count * shuffledSize(filter);
            if (!hasPlanes(shuffledSize(filter), size))
                continue;
            ByteBuffer& other = buffers_[data == buffers_[0].data() ? 1 : 0];
            unsigned char* planes =
                other.reserve(std::max(size, pipeline_.chunkSize()) + checksumsSize_);
            shuffleBytes(data, count, shuffledSize(filter), planes);
            std::memcpy(planes + done, data + done, size - done);
            data = planes;
        } else {
            unsigned char* compressed = stored.reserve(compressor_->bound(size) + checksumsSize_);
            size = compressor_->compress(data, size, compressed);
            data = compressed;
        }
    }
    if (data != stored.data())
        std::memcpy(stored.reserve(size), data, size);
    return size;
}

} // namespace Ovard::gridio
