// SPDX-License-Identifier: BSD-3-Clause
// Reductions of a block of a variable, which is read in slabs: memory is needed for the results and
// for some MiB of values.
#pragma once

#include "cf/decoding.h"
#include "datasets/accumulators.h"
#include "datasets/reduction_plan.h"

namespace Ovard::gridio {

struct ReductionResults {
    double* values; // of resultCount() elements
    double* counts;
};

// A block to be reduced, with the decoder of its values, to doubles.
struct ReducedBlock {
    Variable& variable;
    const Block& block;
    const cf::Decoder& decoder;
};

// Raises the library's failures and the host's interrupt.
void reduceBlock(const ReducedBlock& reduced, const ReductionPlan& plan, Reduction reduction,
                 const ReductionResults& results);

// The same for medians, which need all values of a result at once: of some MiB of results at a
// time, or of one.
void medianOfBlock(const ReducedBlock& reduced, const ReductionPlan& plan,
                   const ReductionResults& results);

} // namespace Ovard::gridio
