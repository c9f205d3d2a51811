// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/reduction.h"

#include "chunks/interruption.h"
#include "data/elements/shapes.h"
#include "datasets/medians.h"
#include "datasets/progress.h"
#include "datasets/slab_queue.h"
#include "datasets/slab_walk.h"

#include <algorithm>
#include <optional>

namespace Ovard::gridio {
namespace {

void fillResults(const Accumulator& accumulator, std::size_t count, const ReductionResults& results)
{
    Interruption interruption;
    for (std::size_t i = 0; i < count; ++i) {
        if (i % 256 == 0)
            interruption.check();
        results.values[i] = accumulator.result(i);
        results.counts[i] = accumulator.count(i);
    }
}

// One of so many passes over the values.
void passAll(const ReducedBlock& reduced, const ReductionPlan& plan, Accumulator& accumulator,
             Progress& progress, std::size_t passes = 1)
{
    if (productOf(reduced.block.count) == 0)
        return;
    reduced.source.forEachSlab(reduced.block, [&](const Spans& spans, const double* values) {
        SlabWalk(plan, spans, accumulator).run(values);
        progress.add(countOf(spans) / passes);
    });
}

// The part of a block that has the count results of one dimension from first on, with the results
// laid out as if there were no others.
struct Part {
    Part(const Block& whole, const ReductionPlan& wholePlan, std::size_t dimension,
         std::size_t first, std::size_t count)
        : block(whole), plan(wholePlan)
    {
        block.isWhole = false;
        ReducedDimension& cut = plan.dimensions[dimension];
        std::size_t begin = first;
        std::size_t end = first + count;
        if (!cut.groups.empty()) {
            begin = cut.length;
            end = 0;
            for (std::size_t i = 0; i < cut.length; ++i) {
                const std::ptrdiff_t group = cut.groups[i] - static_cast<std::ptrdiff_t>(first);
                const bool isIn = group >= 0 && group < static_cast<std::ptrdiff_t>(count);
                cut.groups[i] = isIn ? group : -1;
                begin = isIn ? std::min(begin, i) : begin;
                end = isIn ? i + 1 : end;
            }
            begin = std::min(begin, end);
            cut.groups.erase(cut.groups.begin() + static_cast<std::ptrdiff_t>(end),
                             cut.groups.end());
            cut.groups.erase(cut.groups.begin(),
                             cut.groups.begin() + static_cast<std::ptrdiff_t>(begin));
        }
        block.start[dimension] += begin * static_cast<std::size_t>(block.stride[dimension]);
        block.count[dimension] = cut.length = end - begin;
        for (std::size_t i = 0; i < dimension; ++i)
            plan.dimensions[i].step = plan.dimensions[i].step / cut.results * count;
        cut.results = plan.resultLengths[dimension] = count;
    }

    Block block;
    ReductionPlan plan;
};

bool areInOrder(const std::vector<std::ptrdiff_t>& groups)
{
    std::ptrdiff_t last = -1;
    for (const std::ptrdiff_t group : groups) {
        if (group >= 0 && group < last)
            return false;
        last = std::max(last, group);
    }
    return true;
}

// The dimension along which a block is best cut to pieces with results of their own: one with
// groups in order, else the slowest that is kept, else one whose groups are mixed; none for a
// single result.
std::optional<std::size_t> dimensionToCut(const ReductionPlan& plan)
{
    std::optional<std::size_t> best;
    int bestRank = 3;
    for (std::size_t i = 0; i < plan.dimensions.size(); ++i) {
        const ReducedDimension& dimension = plan.dimensions[i];
        if (dimension.results < 2)
            continue;
        const int rank = dimension.groups.empty() ? 1 : areInOrder(dimension.groups) ? 0 : 2;
        if (rank < bestRank) {
            best = i;
            bestRank = rank;
        }
    }
    return best;
}

void medianByPasses(const ReducedBlock& reduced, const ReductionPlan& plan,
                    const ReductionResults& results, Progress& progress)
{
    Selector selector(plan.resultCount());
    for (int pass = 0; pass < Selector::passes; ++pass) {
        passAll(reduced, plan, selector, progress, Selector::passes);
        selector.endPass();
    }
    fillResults(selector, plan.resultCount(), results);
}

// Values are kept where there is memory for them. Otherwise they are counted, if that needs fewer
// passes over the values than keeping those of one piece after the other.
void medianOfPart(const ReducedBlock& reduced, const ReductionPlan& plan,
                  const ReductionResults& results, std::size_t mostKept, Progress& progress)
{
    const std::size_t elements = productOf(reduced.block.count);
    const std::size_t count = plan.resultCount();
    const std::optional<std::size_t> dimension = dimensionToCut(plan);
    if (elements <= mostKept) {
        Collector collector(count);
        passAll(reduced, plan, collector, progress);
        fillResults(collector, count, results);
        return;
    }
    const bool isCounted = count * Selector::bytes <= mostKept * sizeof(double);
    if (!dimension || (isCounted && elements / mostKept > Selector::passes)) {
        medianByPasses(reduced, plan, results, progress);
        return;
    }
    const ReducedDimension& cut = plan.dimensions[*dimension];
    const std::size_t pieces = std::max<std::size_t>(mostKept / (elements / cut.results), 1);
    const std::size_t outer = count / (cut.results * cut.step);
    for (std::size_t first = 0; first < cut.results; first += pieces) {
        const Part part(reduced.block, plan, *dimension, first,
                        std::min(pieces, cut.results - first));
        const std::size_t run = part.plan.resultLengths[*dimension] * cut.step;
        std::vector<double> values(outer * run), counts(outer * run);
        medianOfPart({reduced.source, part.block}, part.plan, {values.data(), counts.data()},
                     mostKept, progress);
        for (std::size_t i = 0; i < outer; ++i) {
            const std::size_t target = (i * cut.results + first) * cut.step;
            std::copy_n(values.data() + i * run, run, results.values + target);
            std::copy_n(counts.data() + i * run, run, results.counts + target);
        }
    }
}

} // namespace

void VariableSource::forEachSlab(const Block& block, const Visit& visit)
{
    SlabQueue slabs;
    slabs.read(variable_, block, decoder_,
               [&](PendingRead& read, const Spans& spans, const double* values) {
                   read.finish();
                   visit(spans, values);
               });
    slabs.drain();
}

void reduceBlock(const ReducedBlock& reduced, const ReductionPlan& plan, Reduction reduction,
                 const ReductionResults& results)
{
    const std::size_t count = plan.resultCount();
    const auto accumulator = makeAccumulator(reduction, count, plan.isWeighted);
    Progress progress(productOf(reduced.block.count));
    passAll(reduced, plan, *accumulator, progress);
    fillResults(*accumulator, count, results);
}

void medianOfBlock(const ReducedBlock& reduced, const ReductionPlan& plan,
                   const ReductionResults& results, std::size_t mostKept)
{
    Progress progress(productOf(reduced.block.count));
    medianOfPart(reduced, plan, results, mostKept, progress);
}

} // namespace Ovard::gridio
