// SPDX-License-Identifier: BSD-3-Clause
// Reductions of a block of a variable, which is read in slabs: memory is needed for the results and
// for some MiB of values.
#pragma once

#include "cf/decoding.h"
#include "chunks/chunk_walk.h"
#include "datasets/accumulators.h"
#include "datasets/reduction_plan.h"

#include <functional>

namespace Ovard::gridio {

struct ReductionResults {
    double* values; // of resultCount() elements
    double* counts;
};

// Where values come from.
class ValueSource {
public:
    // A slab's place in the block, and its values.
    using Visit = std::function<void(const Spans& spans, const double* values)>;

    virtual ~ValueSource() = default;

    // Reads a block, which has elements, slab by slab.
    virtual void forEachSlab(const Block& block, const Visit& visit) = 0;
};

// A variable of a file, with the decoder of its values, to doubles.
class VariableSource : public ValueSource {
public:
    VariableSource(Variable& variable, const cf::Decoder& decoder)
        : variable_(variable), decoder_(decoder)
    {
    }

    // Raises the library's failures and the host's interrupt.
    void forEachSlab(const Block& block, const Visit& visit) override;

private:
    Variable& variable_;
    const cf::Decoder& decoder_;
};

// A block to be reduced.
struct ReducedBlock {
    ValueSource& source;
    const Block& block;
};

// Raises what the source raises.
void reduceBlock(const ReducedBlock& reduced, const ReductionPlan& plan, Reduction reduction,
                 const ReductionResults& results);

// Values that are kept at once for medians: 64 MiB of them.
constexpr std::size_t mostKeptValues = (std::size_t{64} << 20) / sizeof(double);

// The same for medians, which need all values of a result at once: values are kept of as many
// results as there is memory for, and counted in several passes where one result has more.
void medianOfBlock(const ReducedBlock& reduced, const ReductionPlan& plan,
                   const ReductionResults& results, std::size_t mostKept = mostKeptValues);

} // namespace Ovard::gridio
