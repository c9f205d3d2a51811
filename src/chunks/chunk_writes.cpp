// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_writes.h"

#include "check_status.h"
#include "chunks/chunk_writer.h"
#include "chunks/element_copies.h"
#include "chunks/library_verdict.h"
#include "chunks/slabs.h"
#include "chunks/thread_count.h"
#include "chunks/work_sizes.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

// With fewer bytes of whole chunks the library is as fast.
constexpr std::size_t smallestWrite = std::size_t{8} << 10;

constexpr std::size_t slabSize = std::size_t{4} << 20;

// None for strides, for empty blocks, and for indices that overflow.
std::optional<BlockIndices> plainIndices(const Block& block)
{
    std::optional<BlockIndices> indices(std::in_place, block.start.size());
    for (std::size_t i = 0; i < indices->size(); ++i) {
        std::size_t end = 0;
        if (block.stride[i] != 1 || block.count[i] == 0 ||
            __builtin_add_overflow(block.start[i], block.count[i], &end))
            return std::nullopt;
        (*indices)[i] = {block.start[i], block.count[i], 1};
    }
    return indices;
}

std::size_t endOf(const Indices& indices) { return indices.start + indices.count; }

// Whether the block is within the extents that the variable has or may grow to.
bool isInReach(const ChunkedDataset& dataset, const BlockIndices& block)
{
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (endOf(block[i]) > dataset.extents()[i] && !dataset.isUnlimited(i))
            return false;
    }
    return true;
}

bool isWithin(const BlockIndices& block, const SizeVector& extents)
{
    for (std::size_t i = 0; i < block.size(); ++i) {
        if (endOf(block[i]) > extents[i])
            return false;
    }
    return true;
}

// The part of the block that consists of whole chunks, where a chunk counts as whole if the block
// covers all of it within the extents, which the block may enlarge. A count is 0 if there is none.
BlockIndices wholeChunks(const ChunkedDataset& dataset, const BlockIndices& block)
{
    BlockIndices whole(block.size());
    for (std::size_t i = 0; i < block.size(); ++i) {
        const std::size_t length = dataset.chunkLengths()[i];
        const std::size_t before = (length - block[i].start % length) % length;
        const std::size_t first = block[i].start + std::min(before, block[i].count);
        std::size_t end = endOf(block[i]);
        if (end < dataset.extents()[i])
            end -= end % length;
        whole[i] = {first, end > first && before < block[i].count ? end - first : 0, 1};
    }
    return whole;
}

// Writing the block's last element makes the library enlarge the variable and its unlimited
// dimensions, and its own records of them.
void growTo(Variable& variable, const ElementType& element, const BlockIndices& block,
            const unsigned char* values)
{
    Block last{SizeVector(block.size()), SizeVector(block.size(), 1),
               StrideVector(block.size(), 1)};
    for (std::size_t i = 0; i < block.size(); ++i)
        last.start[i] = endOf(block[i]) - 1;
    checkStatus(writeBlock(variable, element, last, values + (countOf(block) - 1) * element.size),
                variable.entry());
}

// Writes the elements outside whole chunks, chunk by chunk through the cache of HDF5: for each
// dimension those before and after the whole chunks, where all earlier dimensions are within them.
// The netCDF library is not used, since release 4.9.0 reverses the bytes of variables in the other
// byte order when their file was opened again.
class RestWriter {
public:
    RestWriter(const ChunkedDataset& dataset, const SourceBlock& source)
        : dataset_(dataset), source_(source), size_(dataset.elementSize())
    {
    }

    void run(const BlockIndices& whole)
    {
        BlockIndices part = source_.indices;
        for (std::size_t i = 0; i < part.size(); ++i) {
            const Indices all = part[i];
            part[i] = {all.start, whole[i].start - all.start, 1};
            write(part);
            part[i] = {endOf(whole[i]), endOf(all) - endOf(whole[i]), 1};
            write(part);
            part[i] = whole[i];
        }
    }

private:
    void write(const BlockIndices& part)
    {
        if (countOf(part) == 0)
            return;
        const SizeVector lengths = slabLengths(part, dataset_.chunkLengths(), slabSize / size_);
        for (ChunkWalk walk(part, lengths); !walk.isDone(); walk.next()) {
            const Block slab = slabOf(part, walk.spans());
            dataset_.write(slab, gathered(slab));
            interruption_.check();
        }
    }

    const unsigned char* gathered(const Block& slab)
    {
        Spans spans(slab.start.size());
        for (std::size_t i = 0; i < spans.size(); ++i)
            spans[i] = {slab.start[i] - source_.indices[i].start, slab.count[i], 1, 0};
        const std::size_t size = size_;
        unsigned char* values = buffer_.reserve(countOf(spans) * size);
        RunWalk(spans, source_.lengths, slab.count)
            .forEach([&](std::size_t first, std::size_t, std::size_t count, std::size_t target) {
                std::memcpy(values + target * size, source_.values + first * size, count * size);
            });
        return values;
    }

    const ChunkedDataset& dataset_;
    const SourceBlock& source_;
    const std::size_t size_;
    ByteBuffer buffer_;
    Interruption interruption_;
};

bool isFaster(const ChunkedDataset& dataset, const BlockIndices& whole)
{
    return !isLibraryChosen() && dataset.pipeline().codec() != nullptr &&
           dataset.chunkSize() <= memoryBound &&
           countOf(whole) * dataset.elementSize() >= smallestWrite;
}

} // namespace

bool writeChunked(Variable& variable, const Block& block, const void* values, Writes writes)
{
    const ElementType* element = findExternalType(variable.externalType());
    const auto indices = plainIndices(block);
    if (variable.storageModel() != NC_FORMATX_NC_HDF5 || variable.rank() == 0 ||
        element == nullptr || !indices)
        return false;
    variable.requireAccessibleValues();
    if (!isWritable(variable))
        return false;
    auto dataset = ChunkedDataset::open(variable);
    if (!dataset || !dataset->canEncode() || !isInReach(*dataset, *indices))
        return false;
    const BlockIndices whole = wholeChunks(*dataset, *indices);
    if (countOf(whole) == 0 || (writes == Writes::whereFaster && !isFaster(*dataset, whole)))
        return false;

    const SourceBlock source = {static_cast<const unsigned char*>(values), *indices, block.count};
    if (!isWithin(*indices, dataset->extents())) {
        growTo(variable, *element, *indices, source.values);
        dataset->updateExtents();
        if (!isWithin(*indices, dataset->extents()))
            return false;
    }
    ChunkWriter(*dataset, source, whole).run();
    RestWriter(*dataset, source).run(whole);
    return true;
}

} // namespace Ovard::gridio
