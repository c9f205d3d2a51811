// SPDX-License-Identifier: BSD-3-Clause
// One write of whole chunks: all threads pack them, and the calling thread passes them to HDF5 in
// order, so that equal data give equal files.
#pragma once

#include "chunks/chunk_walk.h"
#include "chunks/chunked_dataset.h"
#include "chunks/interruption.h"
#include "chunks/worker_pool.h"

#include <memory>
#include <vector>

namespace Ovard::gridio {

// The values of a block of a variable, contiguous in memory.
struct SourceBlock {
    const unsigned char* values;
    BlockIndices indices; // in the variable, without steps
    SizeVector lengths;   // of the block
};

class ChunkWriter {
public:
    // whole: the part of the source that consists of whole chunks, as indices of the variable.
    // Chunks at the dataset's edges are completed with the fill value.
    ChunkWriter(const ChunkedDataset& dataset, const SourceBlock& source,
                const BlockIndices& whole);

    void run();

private:
    struct PackedChunk {
        SizeVector origin;
        Spans spans; // of the source, in the chunk
        ByteBuffer bytes;
        std::size_t size = 0;
    };
    struct Slot {
        std::vector<PackedChunk> chunks; // the first count of them
        std::size_t count = 0;
    };

    void add(Slot& slot, const ChunkWalk& walk);
    void packAll(Slot& slot, std::size_t worker);
    void pack(PackedChunk& chunk, ChunkEncoder& encoder) const;
    void writeAll(Slot& slot);

    const ChunkedDataset& dataset_;
    const SourceBlock& source_;
    const BlockIndices& whole_;
    std::size_t chunksInSlot_;
    std::vector<Slot> slots_;
    std::vector<std::unique_ptr<ChunkEncoder>> encoders_; // one for each thread
};

} // namespace Ovard::gridio
