// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/reduction.h"

#include "chunks/block_indices.h"
#include "chunks/chunk_reads.h"
#include "chunks/interruption.h"
#include "chunks/slabs.h"
#include "data/elements/shapes.h"
#include "datasets/progress.h"
#include "datasets/slab_walk.h"

#include <algorithm>
#include <functional>
#include <limits>

namespace Ovard::gridio {
namespace {

// Values of a slab. It consists of whole chunks, so it may hold more.
constexpr std::size_t slabElements = (std::size_t{16} << 20) / sizeof(double);

// Values that medians of several results keep in memory.
constexpr std::size_t medianElements = (std::size_t{64} << 20) / sizeof(double);

using Visit = std::function<void(const Spans& spans, const double* values)>;

// Reads a block slab by slab. Raises the library's failures.
void forEachSlab(const ReducedBlock& reduced, Progress& progress, const Visit& visit)
{
    const auto indices = blockIndices(reduced.variable, reduced.block);
    const std::size_t count = productOf(reduced.block.count);
    std::vector<double> values;
    if (!indices || reduced.variable.rank() == 0) {
        values.resize(std::max<std::size_t>(count, 1));
        readValues(reduced.variable, reduced.block, {values.data(), &reduced.decoder});
        Spans whole(reduced.block.count.size());
        for (std::size_t i = 0; i < whole.size(); ++i)
            whole[i].count = reduced.block.count[i];
        visit(whole, values.data());
        return;
    }
    const SizeVector lengths = slabLengths(*indices, chunkLengths(reduced.variable), slabElements);
    Interruption interruption;
    for (ChunkWalk walk(*indices, lengths); !walk.isDone(); walk.next()) {
        interruption.check();
        values.resize(std::max(values.size(), countOf(walk.spans())));
        readValues(reduced.variable, slabOf(*indices, walk.spans()),
                   {values.data(), &reduced.decoder});
        visit(walk.spans(), values.data());
        progress.add(countOf(walk.spans()));
    }
}

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

// Keeps the values of each result.
class Collector : public Accumulator {
public:
    explicit Collector(std::size_t results) : values_(results) {}

    void addToEach(const double* values, std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i)
            add(values[i], first + i);
    }
    void addToOne(const double* values, std::size_t count, std::size_t result) override
    {
        for (std::size_t i = 0; i < count; ++i)
            add(values[i], result);
    }
    void addScattered(const double* values, const double*, const std::ptrdiff_t* offsets,
                      std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i)
            if (offsets[i] >= 0)
                add(values[i], first + static_cast<std::size_t>(offsets[i]));
    }

    // Of an even number of values, the mean of the two in the middle.
    double result(std::size_t index) const override
    {
        std::vector<double> values = values_[index];
        if (values.empty())
            return std::numeric_limits<double>::quiet_NaN();
        const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
        std::nth_element(values.begin(), middle, values.end());
        if (values.size() % 2 == 1)
            return *middle;
        const double lower = *std::max_element(values.begin(), middle);
        return lower == *middle ? lower : lower / 2 + *middle / 2;
    }
    double count(std::size_t index) const override
    {
        return static_cast<double>(values_[index].size());
    }

private:
    void add(double value, std::size_t result)
    {
        if (value == value)
            values_[result].push_back(value);
    }

    std::vector<std::vector<double>> values_;
};

// The part of a block whose first kept dimension is cut to count indices from first on.
struct Part {
    Block block;
    ReductionPlan plan;
    std::size_t firstResult;
};

Part partOf(const Block& block, const ReductionPlan& plan, std::size_t dimension, std::size_t first,
            std::size_t count)
{
    Part part{block, plan, first * plan.dimensions[dimension].step};
    part.block.isWhole = false;
    part.block.start[dimension] += first * static_cast<std::size_t>(block.stride[dimension]);
    part.block.count[dimension] = count;
    part.plan.dimensions[dimension].length = count;
    part.plan.dimensions[dimension].results = count;
    part.plan.resultLengths[dimension] = count;
    return part;
}

void medianOfPart(const ReducedBlock& reduced, const ReductionPlan& plan, Progress& progress,
                  const ReductionResults& results)
{
    Collector collector(plan.resultCount());
    forEachSlab(reduced, progress, [&](const Spans& spans, const double* values) {
        SlabWalk(plan, spans, collector).run(values);
    });
    fillResults(collector, plan.resultCount(), results);
}

} // namespace

void reduceBlock(const ReducedBlock& reduced, const ReductionPlan& plan, Reduction reduction,
                 const ReductionResults& results)
{
    const std::size_t count = plan.resultCount();
    const auto accumulator = makeAccumulator(reduction, count, plan.isWeighted);
    Progress progress(productOf(reduced.block.count));
    forEachSlab(reduced, progress, [&](const Spans& spans, const double* values) {
        SlabWalk(plan, spans, *accumulator).run(values);
    });
    fillResults(*accumulator, count, results);
}

// Splits the block along its slowest kept dimension, if all dimensions outside of it have one
// result each: then the results of a part are adjacent.
void medianOfBlock(const ReducedBlock& reduced, const ReductionPlan& plan,
                   const ReductionResults& results)
{
    std::size_t cut = 0;
    while (cut < plan.dimensions.size() && plan.dimensions[cut].results == 1)
        ++cut;
    const std::size_t elements = productOf(reduced.block.count);
    Progress progress(elements);
    if (cut == plan.dimensions.size() || plan.dimensions[cut].isReduced ||
        elements <= medianElements || reduced.block.stride[cut] <= 0) {
        medianOfPart(reduced, plan, progress, results);
        return;
    }
    const std::size_t length = plan.dimensions[cut].length;
    const std::size_t pieces = std::max<std::size_t>(medianElements / (elements / length), 1);
    for (std::size_t first = 0; first < length; first += pieces) {
        const Part part = partOf(reduced.block, plan, cut, first, std::min(pieces, length - first));
        medianOfPart({reduced.variable, part.block, reduced.decoder}, part.plan, progress,
                     {results.values + part.firstResult, results.counts + part.firstResult});
    }
}

} // namespace Ovard::gridio
