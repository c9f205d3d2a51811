// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/result_block.h"

#include "chunks/byte_planes.h"
#include "chunks/element_copies.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// Elements gathered before they are decoded: few enough to stay in the first-level cache.
constexpr std::size_t tileLength = 1024;

} // namespace

void ResultBlock::put(const ChunkElements& chunk, bool isSwapped, std::size_t first,
                      std::size_t step, std::size_t count, std::size_t target) const
{
    if (decoder_ == nullptr) {
        putStored(chunk, isSwapped, first, step, count, element(target));
        return;
    }
    alignas(16) unsigned char tile[tileLength * sizeof(cf::StoredValue)];
    for (std::size_t done = 0; done < count;) {
        const std::size_t length = std::min(tileLength, count - done);
        putStored(chunk, isSwapped, first + done * step, step, length, tile);
        decoder_->decode(tile, length, element(target + done));
        done += length;
    }
}

void ResultBlock::putStored(const ChunkElements& chunk, bool isSwapped, std::size_t first,
                            std::size_t step, std::size_t count, unsigned char* destination) const
{
    if (chunk.planeLength == 0) {
        copyElements(chunk.bytes + first * storedSize_, storedSize_, step, count, isSwapped,
                     destination);
    } else if (step == 1) {
        unshuffleRun(chunk.bytes, chunk.planeLength, first, count, storedSize_, isSwapped,
                     destination);
    } else {
        for (std::size_t i = 0; i < count; ++i)
            unshuffleRun(chunk.bytes, chunk.planeLength, first + i * step, 1, storedSize_,
                         isSwapped, destination + i * storedSize_);
    }
}

void ResultBlock::fill(const cf::StoredValue& value, std::size_t count, std::size_t target) const
{
    alignas(8) cf::StoredValue decoded = value;
    if (decoder_ != nullptr) {
        alignas(8) const cf::StoredValue stored = value;
        decoder_->decode(stored.data(), 1, decoded.data());
    }
    repeatElement(decoded.data(), resultSize_, count, element(target));
}

} // namespace Ovard::gridio
