// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/slab_walk.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// Results that stay in the first-level cache while values are added to them.
constexpr std::size_t tile = 512;

} // namespace

SlabWalk::SlabWalk(const ReductionPlan& plan, const Spans& spans, Accumulator& accumulator)
    : plan_(plan), accumulator_(accumulator)
{
    for (std::size_t i = spans.size(); i-- > 0;)
        addLevel(plan.dimensions[i], spans[i]);
    if (levels_.empty())
        levels_.push_back({1, 1, 1});
}

// A dimension becomes part of the level inside it if both are reduced, or both are kept and the
// results of one index follow those of the one before.
void SlabWalk::addLevel(const ReducedDimension& dimension, const Span& span)
{
    Level level{span.count, valueStep_, dimension.isReduced ? 0 : dimension.step};
    valueStep_ *= span.count;
    if (!dimension.isReduced)
        firstResult_ += span.target * dimension.step;
    if (!dimension.groups.empty())
        level.groups = dimension.groups.data() + span.target;
    if (!dimension.weights.empty())
        level.weights = dimension.weights.data() + span.target;
    level.jointStep = dimension.jointStep;
    firstJoint_ += span.target * dimension.jointStep;
    if (level.groups != nullptr)
        level.resultStep = dimension.step;

    if (level.isPlain() && level.count == 1)
        return;
    if (!levels_.empty() && level.isPlain() && levels_.back().isPlain()) {
        Level& inner = levels_.back();
        const bool areReduced = level.resultStep == 0 && inner.resultStep == 0;
        const bool areKept =
            inner.resultStep != 0 && level.resultStep == inner.resultStep * inner.count;
        if (areReduced || areKept) {
            inner.count *= level.count;
            return;
        }
    }
    levels_.push_back(level);
}

void SlabWalk::run(const double* values)
{
    visit(levels_.size() - 1, {values, firstResult_, 1, firstJoint_});
}

void SlabWalk::visit(std::size_t level, const Position& position)
{
    const Level& own = levels_[level];
    if (level == 0) {
        visitInner(position);
        return;
    }
    const Level& inner = levels_[level - 1];
    if (level == 1 && !plan_.isWeighted && own.isPlain() && inner.isPlain() &&
        own.resultStep == 0 && inner.resultStep == 1) {
        addTiles(own, inner, position);
        return;
    }
    Position next = position;
    for (std::size_t i = 0; i < own.count; ++i) {
        next.values = position.values + i * own.step;
        next.result = position.result + i * own.resultStep;
        if (own.groups != nullptr) {
            if (own.groups[i] < 0)
                continue;
            next.result =
                position.result + static_cast<std::size_t>(own.groups[i]) * own.resultStep;
        }
        next.weight = position.weight * (own.weights == nullptr ? 1 : own.weights[i]);
        next.joint = position.joint + i * own.jointStep;
        visit(level - 1, next);
    }
}

void SlabWalk::addTiles(const Level& outer, const Level& inner, const Position& position)
{
    for (std::size_t first = 0; first < inner.count; first += tile) {
        const std::size_t count = std::min(tile, inner.count - first);
        for (std::size_t i = 0; i < outer.count; ++i)
            accumulator_.addToEach(position.values + i * outer.step + first, count,
                                   position.result + first);
    }
}

void SlabWalk::visitInner(const Position& position)
{
    const Level& inner = levels_[0];
    if (plan_.isWeighted || inner.groups != nullptr || inner.resultStep > 1)
        scatter(inner, position);
    else if (inner.resultStep == 0)
        accumulator_.addToOne(position.values, inner.count, position.result);
    else
        accumulator_.addToEach(position.values, inner.count, position.result);
}

void SlabWalk::scatter(const Level& inner, const Position& position)
{
    offsets_.resize(inner.count);
    for (std::size_t i = 0; i < inner.count; ++i) {
        const auto step = static_cast<std::ptrdiff_t>(inner.resultStep);
        offsets_[i] = inner.groups == nullptr ? static_cast<std::ptrdiff_t>(i) * step
                      : inner.groups[i] < 0   ? -1
                                              : inner.groups[i] * step;
    }
    if (plan_.isWeighted) {
        weights_.assign(inner.count, position.weight);
        for (std::size_t i = 0; i < inner.count; ++i) {
            if (inner.weights != nullptr)
                weights_[i] *= inner.weights[i];
            if (!plan_.jointWeights.empty())
                weights_[i] *= plan_.jointWeights[position.joint + i * inner.jointStep];
        }
    }
    accumulator_.addScattered(position.values, plan_.isWeighted ? weights_.data() : nullptr,
                              offsets_.data(), inner.count, position.result);
}

} // namespace Ovard::gridio
