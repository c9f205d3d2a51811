// SPDX-License-Identifier: BSD-3-Clause
// Passes the values of a slab to an accumulator run by run.
#pragma once

#include "chunks/chunk_walk.h"
#include "datasets/accumulators.h"
#include "datasets/reduction_plan.h"

namespace Ovard::gridio {

class SlabWalk {
public:
    // The slab's place in the block, and its values in the library's order. Results are those of
    // the plan.
    SlabWalk(const ReductionPlan& plan, const Spans& spans, Accumulator& accumulator);

    void run(const double* values);

private:
    // One or several dimensions of the slab that are treated as one.
    struct Level {
        std::size_t count;
        std::size_t step;                       // in the values
        std::size_t resultStep;                 // 0 if it is reduced
        const std::ptrdiff_t* groups = nullptr; // from the slab's first index on
        const double* weights = nullptr;
        std::size_t jointStep = 0;

        bool isPlain() const { return groups == nullptr && weights == nullptr && jointStep == 0; }
    };

    // Where a run begins, and the product of the weights of the levels outside of it.
    struct Position {
        const double* values;
        std::size_t result;
        double weight;
        std::size_t joint;
    };

    void addLevel(const ReducedDimension& dimension, const Span& span);
    void visit(std::size_t level, const Position& position);
    void visitInner(const Position& position);
    void addTiles(const Level& outer, const Level& inner, const Position& position);
    void scatter(const Level& inner, const Position& position);

    const ReductionPlan& plan_;
    Accumulator& accumulator_;
    std::vector<Level> levels_; // the innermost first
    std::size_t firstResult_ = 0;
    std::size_t firstJoint_ = 0;
    std::size_t valueStep_ = 1;
    std::vector<std::ptrdiff_t> offsets_;
    std::vector<double> weights_;
};

} // namespace Ovard::gridio
