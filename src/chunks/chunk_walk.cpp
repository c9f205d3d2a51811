// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_walk.h"

#include <algorithm>

namespace Ovard::gridio {

namespace {

template <class List> std::size_t productOfCounts(const List& list)
{
    std::size_t product = 1;
    for (const auto& dimension : list)
        product *= dimension.count;
    return product;
}

} // namespace

std::size_t countOf(const Spans& spans) { return productOfCounts(spans); }

std::size_t countOf(const BlockIndices& block) { return productOfCounts(block); }

std::size_t chunksMet(const BlockIndices& block, const SizeVector& chunkLengths)
{
    std::size_t count = 1;
    for (std::size_t i = 0; i < block.size(); ++i)
        count *= block[i].chunksMet(chunkLengths[i]);
    return count;
}

ChunkWalk::ChunkWalk(const BlockIndices& block, const SizeVector& chunkLengths)
    : block_(block), chunkLengths_(chunkLengths), origin_(block.size()), spans_(block.size())
{
    for (std::size_t i = 0; i < block.size(); ++i)
        enter(i, 0);
}

void ChunkWalk::next()
{
    for (std::size_t i = spans_.size(); i-- > 0;) {
        const std::size_t target = spans_[i].target + spans_[i].count;
        if (target < block_[i].count) {
            enter(i, target);
            return;
        }
        enter(i, 0);
    }
    isDone_ = true;
}

// The chunk that holds the block's index of that number.
void ChunkWalk::enter(std::size_t dimension, std::size_t target)
{
    const Indices& indices = block_[dimension];
    const std::size_t length = chunkLengths_[dimension];
    const std::size_t first = indices.at(target) % length;
    const std::size_t fitting = (length - 1 - first) / indices.step + 1;
    const std::size_t count = std::min(fitting, indices.count - target);
    origin_[dimension] = indices.at(target) - first;
    spans_[dimension] = {first, count, count == 1 ? 1 : indices.step, target};
}

RunWalk::RunWalk(const Spans& spans, const SizeVector& chunkLengths, const SizeVector& blockLengths)
{
    // From the innermost dimension outwards. A dimension that is covered completely, both in the
    // chunk and in the block, is joined with the next.
    std::size_t chunkStep = 1;
    std::size_t blockStep = 1;
    bool isJoined = false;
    for (std::size_t i = spans.size(); i-- > 0;) {
        Span span = spans[i];
        if (isJoined) {
            Span& inner = spans_.back();
            span.first *= inner.count;
            span.target *= inner.count;
            span.count *= inner.count;
            inner = span;
        } else {
            spans_.push_back(span);
            chunkSteps_.push_back(chunkStep);
            blockSteps_.push_back(blockStep);
        }
        chunkStep *= chunkLengths[i];
        blockStep *= blockLengths[i];
        isJoined = false;
        if (i > 0 && spans[i - 1].step == 1) {
            const Span& last = spans_.back();
            const std::size_t chunkExtent = chunkStep / chunkSteps_.back();
            const std::size_t blockExtent = blockStep / blockSteps_.back();
            isJoined = last.step == 1 && last.count == chunkExtent && last.count == blockExtent;
        }
    }
    std::reverse(spans_.begin(), spans_.end());
    std::reverse(chunkSteps_.begin(), chunkSteps_.end());
    std::reverse(blockSteps_.begin(), blockSteps_.end());
    rank_ = spans_.size();
    position_.assign(rank_, 0);
    for (std::size_t i = 0; i + 1 < rank_; ++i) {
        chunkIndex_ += spans_[i].first * chunkSteps_[i];
        blockIndex_ += spans_[i].target * blockSteps_[i];
    }
}

bool RunWalk::next()
{
    for (std::size_t i = rank_ - 1; i-- > 0;) {
        const Span& span = spans_[i];
        if (++position_[i] < span.count) {
            chunkIndex_ += span.step * chunkSteps_[i];
            blockIndex_ += blockSteps_[i];
            return true;
        }
        position_[i] = 0;
        chunkIndex_ -= (span.count - 1) * span.step * chunkSteps_[i];
        blockIndex_ -= (span.count - 1) * blockSteps_[i];
    }
    return false;
}

} // namespace Ovard::gridio
