// SPDX-License-Identifier: BSD-3-Clause
// A variable as HDF5 stores it in chunks.
#pragma once

#include "cf/decoding.h"
#include "chunks/filter_pipeline.h"
#include "data/elements/blocks.h"
#include "library/hdf5_file.h"

#include <cstdint>
#include <optional>

namespace Ovard::gridio {

// The bytes of one chunk in the file.
struct StoredChunk {
    std::size_t size = 0;      // 0: the chunk is missing
    std::uint32_t skipped = 0; // bits of the filters that were not applied
};

class ChunkedDataset {
public:
    // None if the variable is not in the file yet, not chunked, or stored in a way that is left to
    // the library: virtual or external storage, types other than the ten numeric ones and
    // characters of one byte, filters that are unknown here. The library must have no pending
    // definitions (isInFile).
    static std::optional<ChunkedDataset> open(Variable& variable);

    const SizeVector& chunkLengths() const { return chunkLengths_; }
    const FilterPipeline& pipeline() const { return pipeline_; }
    std::size_t elementSize() const { return pipeline_.elementSize(); }
    std::size_t chunkSize() const { return pipeline_.chunkSize(); }
    bool isSwapped() const { return isSwapped_; } // not in native byte order

    // How far along each dimension the variable is in the file now, and how far it may grow.
    const SizeVector& extents() const { return extents_; }
    bool isUnlimited(std::size_t dimension) const { return isUnlimited_[dimension]; }
    void updateExtents();

    // The value of the elements of missing chunks.
    const cf::StoredValue& fillValue() const { return fillValue_; }

    // origin is the index of the chunk's first element. Chunks in the library's cache are written
    // to the file first. Throw DamagedChunk when HDF5 fails.
    std::size_t storedSize(const SizeVector& origin) const;
    StoredChunk read(const SizeVector& origin, std::size_t size, unsigned char* bytes) const;

    // Whether chunks can be written.
    bool canEncode() const { return !leavesEdgesUnfiltered_ && ChunkEncoder::canEncode(pipeline_); }

    // Raises NC_EHDFERR when HDF5 fails. Replaces a chunk, also in the library's cache.
    void write(const SizeVector& origin, const unsigned char* bytes, std::size_t size) const;

    // The same for a block within the extents, without steps, of values in native byte order.
    void write(const Block& block, const void* values) const;

private:
    ChunkedDataset(Hdf5Id dataset, FilterPipeline pipeline, const OperationEntry* entry)
        : dataset_(std::move(dataset)), pipeline_(std::move(pipeline)), entry_(entry)
    {
    }

    void requireMissing(const SizeVector& origin) const;
    cf::StoredValue inNativeOrder(cf::StoredValue value) const;
    bool isEdge(const SizeVector& origin) const;

    Hdf5Id dataset_;
    FilterPipeline pipeline_;
    const OperationEntry* entry_;
    SizeVector chunkLengths_;
    SizeVector extents_;
    DimensionVector<bool> isUnlimited_;
    cf::StoredValue fillValue_{};
    bool isSwapped_ = false;
    bool leavesEdgesUnfiltered_ = false;
};

} // namespace Ovard::gridio
