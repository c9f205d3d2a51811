// SPDX-License-Identifier: BSD-3-Clause
// The chunks that a block of a variable touches, and the runs of elements in each. Dimensions are
// in the library's order.
#pragma once

#include "data/elements/index_vectors.h"

#include <cstddef>

namespace Ovard::gridio {

// The part of a chunk that a block covers along one dimension.
struct Span {
    std::size_t first = 0; // index in the chunk
    std::size_t count = 0;
    std::size_t step = 1;
    std::size_t target = 0; // index in the block
};
using Spans = DimensionVector<Span>;

// The number of elements.
std::size_t countOf(const Spans& spans);

// The indices start, start + step, ... of a variable.
struct Indices {
    std::size_t start = 0;
    std::size_t count = 0;
    std::size_t step = 1;

    std::size_t at(std::size_t i) const { return start + i * step; }
    // How many of them are below the end.
    std::size_t countBelow(std::size_t end) const
    {
        if (start >= end)
            return 0;
        const std::size_t below = (end - 1 - start) / step + 1;
        return below < count ? below : count;
    }
    // How many chunks of that length they touch.
    std::size_t chunksMet(std::size_t length) const
    {
        if (step >= length)
            return count;
        return count == 0 ? 0 : at(count - 1) / length - start / length + 1;
    }
};
using BlockIndices = DimensionVector<Indices>;

std::size_t countOf(const BlockIndices& block);

// How many chunks the block touches.
std::size_t chunksMet(const BlockIndices& block, const SizeVector& chunkLengths);

// Iterates over the chunks in the order that they would have in memory. No count may be 0.
class ChunkWalk {
public:
    ChunkWalk(const BlockIndices& block, const SizeVector& chunkLengths);

    bool isDone() const { return isDone_; }
    void next();

    // The index in the variable of the chunk's first element.
    const SizeVector& origin() const { return origin_; }
    const Spans& spans() const { return spans_; }

private:
    void enter(std::size_t dimension, std::size_t target);

    const BlockIndices& block_;
    const SizeVector& chunkLengths_;
    SizeVector origin_;
    Spans spans_;
    bool isDone_ = false;
};

// Runs of elements that are equally spaced in a chunk and contiguous in a block.
class RunWalk {
public:
    RunWalk(const Spans& spans, const SizeVector& chunkLengths, const SizeVector& blockLengths);

    // Whether all elements of a chunk, of which there are so many, are one run, and where it begins
    // in the block.
    bool isOneRun(std::size_t elements) const
    {
        return rank_ == 1 && spans_[0].step == 1 && spans_[0].count == elements;
    }
    std::size_t target() const { return blockIndex_ + spans_[rank_ - 1].target; }

    // visit (first, step, count, target): the index of the first element in the chunk and in the
    // block.
    template <class Visit> void forEach(Visit visit)
    {
        const Span& inner = spans_[rank_ - 1];
        for (;;) {
            visit(chunkIndex_ + inner.first, inner.step, inner.count, blockIndex_ + inner.target);
            if (!next())
                return;
        }
    }

private:
    bool next();

    Spans spans_; // for the dimensions that could not be joined, the innermost last
    SizeVector chunkSteps_;
    SizeVector blockSteps_;
    SizeVector position_;
    std::size_t rank_ = 0;
    std::size_t chunkIndex_ = 0;
    std::size_t blockIndex_ = 0;
};

} // namespace Ovard::gridio
