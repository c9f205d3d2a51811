// SPDX-License-Identifier: BSD-3-Clause
// The destination of a read: values as they are stored, in native byte order, or decoded.
#pragma once

#include "cf/decoding.h"
#include "chunks/filter_pipeline.h"

#include <array>
#include <cstddef>

namespace Ovard::gridio {

// Several threads may write concurrently, each to its own elements.
class ResultBlock {
public:
    // decoder may be null.
    ResultBlock(void* values, std::size_t storedSize, const cf::Decoder* decoder)
        : values_(static_cast<unsigned char*>(values)), storedSize_(storedSize),
          resultSize_(decoder == nullptr ? storedSize : decoder->decodedSize()), decoder_(decoder)
    {
    }

    bool isDecoded() const { return decoder_ != nullptr; }
    unsigned char* element(std::size_t index) const { return values_ + index * resultSize_; }

    // Writes count elements of a chunk, at first, first + step, ..., to index target and those
    // after it. isSwapped: they are not in native byte order.
    void put(const ChunkElements& chunk, bool isSwapped, std::size_t first, std::size_t step,
             std::size_t count, std::size_t target) const;

    // Writes one element, in native byte order, count times.
    void fill(const cf::StoredValue& value, std::size_t count, std::size_t target) const;

private:
    void putStored(const ChunkElements& chunk, bool isSwapped, std::size_t first, std::size_t step,
                   std::size_t count, unsigned char* destination) const;

    unsigned char* values_;
    std::size_t storedSize_;
    std::size_t resultSize_;
    const cf::Decoder* decoder_;
};

} // namespace Ovard::gridio
