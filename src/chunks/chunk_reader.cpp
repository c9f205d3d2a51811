// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_reader.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// The bytes of such a chunk can be used as elements directly.
constexpr std::size_t alignment = 16;

std::size_t aligned(std::size_t offset) { return (offset + alignment - 1) / alignment * alignment; }

} // namespace

ChunkReader::ChunkReader(const ChunkedDataset& dataset, const BlockIndices& block,
                         const SizeVector& blockLengths, const ResultBlock& result, Caller caller)
    : ChunkReader(dataset, block, blockLengths, result, caller,
                  workSizes(chunksMet(block, dataset.chunkLengths()), dataset.chunkSize(), caller))
{
}

ChunkReader::ChunkReader(const ChunkedDataset& dataset, const BlockIndices& block,
                         const SizeVector& blockLengths, const ResultBlock& result, Caller caller,
                         const WorkSizes& sizes)
    : dataset_(dataset), block_(block), blockLengths_(blockLengths), result_(result),
      caller_(caller), chunksInSlot_(sizes.chunksInSlot), slots_(sizes.slots),
      decoders_(sizes.threads),
      pool_(
          sizes.threads, sizes.slots,
          [this](std::size_t slot, std::size_t worker) { unpackAll(slots_[slot], worker); },
          [this] { interruption_.check(); })
{
}

void ChunkReader::begin()
{
    std::size_t current = 0;
    const auto handOut = [&] {
        pool_.submit(current, caller_);
        current = (current + 1) % slots_.size();
        interruption_.check();
        pool_.finish(current);
        slots_[current].clear();
    };
    for (ChunkWalk walk(block_, dataset_.chunkLengths()); !walk.isDone(); walk.next()) {
        const std::size_t size = dataset_.storedSize(walk.origin());
        if (size > dataset_.pipeline().largestStoredSize())
            throw DamagedChunk();
        if (!fits(slots_[current], size))
            handOut();
        add(slots_[current], walk, size);
    }
    pool_.submit(current, caller_);
}

// Whether one more chunk of that size in the file fits into the slot.
bool ChunkReader::fits(const Slot& slot, std::size_t size) const
{
    return slot.count == 0 || (slot.count < chunksInSlot_ && slot.used + size <= slot.bytes.size());
}

void ChunkReader::add(Slot& slot, const ChunkWalk& walk, std::size_t size)
{
    if (slot.count == 0)
        slot.bytes.reserve(std::max(size, chunksInSlot_ * aligned(dataset_.chunkSize())));
    if (slot.count == slot.chunks.size())
        slot.chunks.emplace_back();
    PendingChunk& chunk = slot.chunks[slot.count];
    chunk.spans = walk.spans();
    chunk.offset = slot.used;
    chunk.stored = size == 0 ? StoredChunk()
                             : dataset_.read(walk.origin(), size, slot.bytes.data() + slot.used);
    ++slot.count;
    slot.used = aligned(slot.used + size);
}

void ChunkReader::unpackAll(const Slot& slot, std::size_t worker)
{
    std::unique_ptr<ChunkDecoder>& decoder = decoders_[worker];
    if (decoder == nullptr)
        decoder = std::make_unique<ChunkDecoder>(dataset_.pipeline());
    for (std::size_t i = 0; i < slot.count; ++i)
        unpack(slot, slot.chunks[i], *decoder);
}

void ChunkReader::unpack(const Slot& slot, const PendingChunk& chunk, ChunkDecoder& decoder) const
{
    RunWalk runs(chunk.spans, dataset_.chunkLengths(), blockLengths_);
    if (chunk.stored.size == 0) {
        runs.forEach([this](std::size_t, std::size_t, std::size_t count, std::size_t target) {
            result_.fill(dataset_.fillValue(), count, target);
        });
        return;
    }
    const bool isSwapped = dataset_.isSwapped();
    const std::size_t elements = dataset_.chunkSize() / dataset_.elementSize();
    unsigned char* direct = nullptr;
    if (!isSwapped && !result_.isDecoded() && runs.isOneRun(elements))
        direct = result_.element(runs.target());
    const ChunkElements unpacked = decoder.decode(slot.bytes.data() + chunk.offset,
                                                  chunk.stored.size, chunk.stored.skipped, direct);
    if (direct != nullptr && unpacked.bytes == direct)
        return;
    runs.forEach([&](std::size_t first, std::size_t step, std::size_t count, std::size_t target) {
        result_.put(unpacked, isSwapped, first, step, count, target);
    });
}

} // namespace Ovard::gridio
