// SPDX-License-Identifier: BSD-3-Clause
// Means, sums, extremes and the like over dimensions of a variable.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/shapes.h"
#include "dataset_error_identifiers.h"
#include "datasets/block_values.h"
#include "datasets/reduction.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio::datasetOperations {
namespace {

Reduction readKind(const vxArray* a)
{
    constexpr std::pair<const char*, Reduction> kinds[] = {
        {"mean", Reduction::mean},   {"sum", Reduction::sum},       {"min", Reduction::minimum},
        {"max", Reduction::maximum}, {"std", Reduction::deviation}, {"var", Reduction::variance},
        {"count", Reduction::count}, {"median", Reduction::median}};
    const std::string word = readText(a, "kind");
    for (const auto& [name, kind] : kinds)
        if (word == name)
            return kind;
    vxErrMsgId(
        dataset::badArgument("kind", "one of mean, sum, min, max, std, var, count and median"));
}

vxArray* createResults(const ReductionPlan& plan)
{
    const SizeVector dims = toHostDimensions(plan.resultLengths);
    return vxCreateUninitNumericArray(dims.size(), dims.data(), vxDOUBLE_CLASS, vxREAL);
}

// For a block without values.
void reduceNothing(const ReductionPlan& plan, Reduction reduction, const ReductionResults& results)
{
    const auto accumulator =
        makeAccumulator(reduction == Reduction::median ? Reduction::mean : reduction, 1, false);
    std::fill_n(results.values, plan.resultCount(), accumulator->result(0));
    std::fill_n(results.counts, plan.resultCount(), 0.0);
}

} // namespace

void reduce(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const Reduction reduction = readKind(args[0]);
    const int ncid = readNcid(args[1]);
    const int varid = readIntScalar(args[2], "varid");
    if (varid == NC_GLOBAL)
        raiseLibraryFailure(NC_ENOTVAR, entry);
    Variable variable(ncid, varid, entry);
    const Block block = readDatasetBlock(args + 3, variable);
    const unsigned flags = readDecodingFlags(args[6]);
    const ReductionPlan plan = planReduction(block, {args[7], args[8], args[9]});

    auto decoding = variableDecoding(variable, flags & ~unsigned{decodeToSingle});
    if (!decoding)
        vxErrMsgId(dataset::badArgument("varid", "that of a variable of numbers"));
    if (reduction == Reduction::median && plan.isWeighted)
        vxErrMsgId(dataset::badArgument("weights", "empty for a median, which has none"));
    decoding->rules.decoded = cf::DecodedType::float64;
    const cf::Decoder decoder(decoding->rules);

    vxArray* values = createResults(plan);
    vxArray* counts = createResults(plan);
    const ReductionResults written{static_cast<double*>(vxGetWritableData(values)),
                                   static_cast<double*>(vxGetWritableData(counts))};
    if (productOf(block.count) == 0)
        reduceNothing(plan, reduction, written);
    else if (reduction == Reduction::median)
        medianOfBlock({variable, block, decoder}, plan, written);
    else
        reduceBlock({variable, block, decoder}, plan, reduction, written);
    results[0] = values;
    results[1] = counts;
}

} // namespace Ovard::gridio::datasetOperations
