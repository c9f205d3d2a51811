// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_writer.h"

#include "chunks/element_copies.h"
#include "chunks/work_sizes.h"

#include <cstring>

namespace Ovard::gridio {

ChunkWriter::ChunkWriter(const ChunkedDataset& dataset, const SourceBlock& source,
                         const BlockIndices& whole)
    : dataset_(dataset), source_(source), whole_(whole)
{
    const WorkSizes sizes =
        workSizes(chunksMet(whole, dataset.chunkLengths()), dataset.chunkSize());
    chunksInSlot_ = sizes.chunksInSlot;
    slots_.resize(sizes.slots);
    encoders_.resize(sizes.threads);
}

void ChunkWriter::run()
{
    Interruption interruption;
    WorkerPool pool(
        encoders_.size(), slots_.size(),
        [this](std::size_t slot, std::size_t worker) { packAll(slots_[slot], worker); },
        [&interruption] { interruption.check(); });
    std::size_t current = 0;
    const auto moveOn = [&] {
        current = (current + 1) % slots_.size();
        pool.finish(current);
        writeAll(slots_[current]);
        interruption.check();
    };
    for (ChunkWalk walk(whole_, dataset_.chunkLengths()); !walk.isDone(); walk.next()) {
        add(slots_[current], walk);
        if (slots_[current].count < chunksInSlot_)
            continue;
        pool.submit(current);
        moveOn();
    }
    if (slots_[current].count > 0)
        pool.submit(current);
    for (std::size_t i = 0; i < slots_.size(); ++i)
        moveOn();
}

void ChunkWriter::add(Slot& slot, const ChunkWalk& walk)
{
    if (slot.count == slot.chunks.size())
        slot.chunks.emplace_back();
    PackedChunk& chunk = slot.chunks[slot.count];
    chunk.origin = walk.origin();
    chunk.spans.resize(walk.spans().size());
    for (std::size_t i = 0; i < chunk.spans.size(); ++i) {
        const Span& span = walk.spans()[i];
        chunk.spans[i] = {whole_[i].start - source_.indices[i].start + span.target, span.count, 1,
                          0};
    }
    ++slot.count;
}

void ChunkWriter::packAll(Slot& slot, std::size_t worker)
{
    std::unique_ptr<ChunkEncoder>& encoder = encoders_[worker];
    if (encoder == nullptr)
        encoder = std::make_unique<ChunkEncoder>(dataset_.pipeline());
    for (std::size_t i = 0; i < slot.count; ++i)
        pack(slot.chunks[i], *encoder);
}

void ChunkWriter::pack(PackedChunk& chunk, ChunkEncoder& encoder) const
{
    const std::size_t size = dataset_.elementSize();
    const std::size_t elements = dataset_.chunkSize() / size;
    unsigned char* bytes = encoder.elements();
    if (countOf(chunk.spans) < elements)
        repeatElement(dataset_.fillValue().data(), size, elements, bytes);
    RunWalk(chunk.spans, source_.lengths, dataset_.chunkLengths())
        .forEach([&](std::size_t first, std::size_t, std::size_t count, std::size_t target) {
            std::memcpy(bytes + target * size, source_.values + first * size, count * size);
        });
    if (dataset_.isSwapped())
        copyElements(bytes, size, 1, elements, true, bytes);
    chunk.size = encoder.encode(chunk.bytes);
}

void ChunkWriter::writeAll(Slot& slot)
{
    for (std::size_t i = 0; i < slot.count; ++i)
        dataset_.write(slot.chunks[i].origin, slot.chunks[i].bytes.data(), slot.chunks[i].size);
    slot.count = 0;
}

} // namespace Ovard::gridio
