// SPDX-License-Identifier: BSD-3-Clause
// Which values of a block contribute to which result of a reduction, and with what weight.
// Dimensions are in the library's order.
#pragma once

#include "data/elements/blocks.h"

#include <vector>

namespace Ovard::gridio {

// How one dimension of the block is reduced or kept.
struct ReducedDimension {
    std::size_t length = 0;  // of the block
    std::size_t results = 0; // of the result: length if it is kept, 1 if it is reduced
    std::size_t step = 0;    // from one result to the next
    bool isReduced = false;
    std::vector<std::ptrdiff_t> groups; // by index: the group from 0, -1 for none; or empty
    std::vector<double> weights;        // by index; or empty
    std::size_t jointStep = 0;          // in the weights of several dimensions
};

struct ReductionPlan {
    std::vector<ReducedDimension> dimensions;
    std::vector<double> jointWeights; // of several dimensions together; or empty
    SizeVector resultLengths;
    bool isWeighted = false;

    std::size_t resultCount() const;
};

// The arguments isReduced, bins and weights of "reduce", each by dimension in the host's order.
// Weights of several dimensions together are a structure: dimensions, counted from 1, and values.
struct ReductionArguments {
    const vxArray* isReduced; // a row of flags, logical or numbers
    const vxArray* bins;      // a cell array; empty: no groups
    const vxArray* weights;   // a cell array or a structure; empty: no weights
};

// Raises badArgument.
ReductionPlan planReduction(const Block& block, const ReductionArguments& arguments);

} // namespace Ovard::gridio
