// SPDX-License-Identifier: BSD-3-Clause
// One read of a block of a chunked dataset: the calling thread gets the chunks from HDF5, and all
// threads unpack them into the result. The caller may do other work between begin and finish.
#pragma once

#include "chunks/chunk_walk.h"
#include "chunks/chunked_dataset.h"
#include "chunks/interruption.h"
#include "chunks/result_block.h"
#include "chunks/work_sizes.h"
#include "chunks/worker_pool.h"

#include <memory>
#include <vector>

namespace Ovard::gridio {

class ChunkReader {
public:
    // The block must be within the dataset's extents. blockLengths are those of the result; the
    // block may cover only its beginning along each dimension. All arguments must exist as long as
    // the reader.
    ChunkReader(const ChunkedDataset& dataset, const BlockIndices& block,
                const SizeVector& blockLengths, const ResultBlock& result, Caller caller);

    // Gets all chunks from HDF5. Both throw DamagedChunk.
    void begin();
    void finish() { pool_.finishAll(); }

private:
    struct PendingChunk {
        Spans spans;
        StoredChunk stored;
        std::size_t offset = 0; // in the bytes of the slot
    };
    struct Slot {
        ByteBuffer bytes;
        std::size_t used = 0;
        std::vector<PendingChunk> chunks; // the first count of them
        std::size_t count = 0;

        void clear() { used = count = 0; }
    };

    ChunkReader(const ChunkedDataset& dataset, const BlockIndices& block,
                const SizeVector& blockLengths, const ResultBlock& result, Caller caller,
                const WorkSizes& sizes);

    bool fits(const Slot& slot, std::size_t size) const;
    void add(Slot& slot, const ChunkWalk& walk, std::size_t size);
    void unpackAll(const Slot& slot, std::size_t worker);
    void unpack(const Slot& slot, const PendingChunk& chunk, ChunkDecoder& decoder) const;

    const ChunkedDataset& dataset_;
    const BlockIndices& block_;
    const SizeVector& blockLengths_;
    const ResultBlock& result_;
    Caller caller_;
    std::size_t chunksInSlot_;
    std::vector<Slot> slots_;
    std::vector<std::unique_ptr<ChunkDecoder>> decoders_; // one for each thread
    Interruption interruption_;
    WorkerPool pool_; // the last: its threads use the others
};

} // namespace Ovard::gridio
