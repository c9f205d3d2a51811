// SPDX-License-Identifier: BSD-3-Clause
// The filters between the elements of a chunk and its bytes in the file.
#pragma once

#include "chunks/byte_buffer.h"
#include "chunks/codecs/codec.h"

#include <cstddef>
#include <cstdint>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

namespace Ovard::gridio {

// The bytes in the file cannot be decoded to the elements of a chunk.
class DamagedChunk : public std::exception {
public:
    const char* what() const noexcept override { return "a chunk is damaged"; }
};

// Elements in the byte order of the file: contiguous, or as planes of their bytes.
struct ChunkElements {
    const unsigned char* bytes = nullptr;
    std::size_t planeLength = 0; // 0: contiguous
};

class FilterPipeline {
public:
    // The filters in the order in which they were applied to chunks of that size. None if one is
    // unknown here or has parameters that only HDF5 can interpret, or if two compress.
    static std::optional<FilterPipeline> make(std::vector<Filter> filters, std::size_t chunkSize,
                                              std::size_t elementSize);

    const std::vector<Filter>& filters() const { return filters_; }
    bool isEmpty() const { return filters_.empty(); }
    std::size_t chunkSize() const { return chunkSize_; }
    std::size_t elementSize() const { return elementSize_; }

    // Null if no filter compresses.
    const Filter* codec() const;

    // No filter makes a chunk larger than this.
    std::size_t largestStoredSize() const { return 2 * chunkSize_ + 65536; }

private:
    FilterPipeline(std::vector<Filter> filters, std::size_t chunkSize, std::size_t elementSize);

    std::vector<Filter> filters_;
    std::size_t chunkSize_; // in bytes
    std::size_t elementSize_;
};

// Undoes the filters. Not thread-safe.
class ChunkDecoder {
public:
    explicit ChunkDecoder(const FilterPipeline& pipeline);

    // The elements of a chunk from its bytes in the file. A set bit of skipped means that the
    // filter of that number was not applied. The elements are valid until the next call, and are in
    // stored, in the decoder's memory, or at direct, if that is not null: it must have space for a
    // chunk, and saves a copy. Throws DamagedChunk.
    ChunkElements decode(const unsigned char* stored, std::size_t size, std::uint32_t skipped,
                         unsigned char* direct = nullptr);

private:
    struct Bytes {
        const unsigned char* data;
        std::size_t size;
    };

    bool isApplied(std::size_t filter, std::uint32_t skipped) const;
    bool isLast(std::size_t filter, std::uint32_t skipped) const;
    std::size_t sizeBefore(std::size_t filter, std::uint32_t skipped) const;
    unsigned char* freeBuffer(const unsigned char* used, std::size_t size);
    Bytes decompress(Bytes bytes, std::size_t size, unsigned char* direct);
    Bytes unshuffle(Bytes bytes, std::size_t size);

    const FilterPipeline& pipeline_;
    std::unique_ptr<Decompressor> decompressor_;
    ByteBuffer buffers_[2];
};

// Applies the filters. Not thread-safe.
class ChunkEncoder {
public:
    // Whether each filter can be applied here.
    static bool canEncode(const FilterPipeline& pipeline);

    explicit ChunkEncoder(const FilterPipeline& pipeline);

    // Memory for the elements of a chunk in the byte order of the file, to be filled.
    unsigned char* elements() { return buffers_[0].data(); }

    // Converts the elements, which are overwritten, to the bytes in the file, and returns their
    // number.
    std::size_t encode(ByteBuffer& stored);

private:
    const FilterPipeline& pipeline_;
    std::unique_ptr<Compressor> compressor_;
    std::size_t checksumsSize_ = 0; // total size of the checksums of a chunk
    ByteBuffer buffers_[2];
};

} // namespace Ovard::gridio
