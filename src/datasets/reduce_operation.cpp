// SPDX-License-Identifier: BSD-3-Clause
// Means, sums, extremes and the like over dimensions of a variable.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/shapes.h"
#include "dataset_error_identifiers.h"
#include "convert/result_builders.h"
#include "datasets/block_values.h"
#include "datasets/joined_values.h"
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
        {"count", Reduction::count}, {"median", Reduction::median}, {"weight", Reduction::weight}};
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

void requireUnweighted(const ReductionPlan& plan, Reduction reduction)
{
    if (reduction == Reduction::median && plan.isWeighted)
        vxErrMsgId(dataset::badArgument("weights", "empty for a median, which has none"));
}

// Only the joined dimension: the others are those of each file, which the library checks.
void requireInside(const JoinedParts& parts, const Block& block)
{
    if (block.start.size() != block.count.size() || parts.dimension == 0 ||
        parts.dimension > block.count.size())
        vxErrMsgId(dataset::badArgument("COUNT", "as many numbers as there are dimensions"));
    const std::size_t dimension = block.count.size() - parts.dimension;
    double length = 0;
    for (const double one : parts.lengths)
        length += one;
    const auto start = static_cast<double>(block.start[dimension]);
    if (start + static_cast<double>(block.count[dimension]) > length)
        vxErrMsgId(dataset::badArgument("COUNT", "within the joined dimension"));
}

void reduceInto(vxArray* results[], const ReducedBlock& reduced, const ReductionPlan& plan,
                Reduction reduction)
{
    results[0] = createResults(plan);
    results[1] = createResults(plan);
    const ReductionResults written{static_cast<double*>(vxGetWritableData(results[0])),
                                   static_cast<double*>(vxGetWritableData(results[1]))};
    if (productOf(reduced.block.count) == 0)
        reduceNothing(plan, reduction, written);
    else if (reduction == Reduction::median)
        medianOfBlock(reduced, plan, written);
    else
        reduceBlock(reduced, plan, reduction, written);
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
    requireUnweighted(plan, reduction);
    decoding->rules.decoded = cf::DecodedType::float64;
    const cf::Decoder decoder(decoding->rules);

    VariableSource source(variable, decoder);
    reduceInto(results, {source, block}, plan, reduction);
}

// The third result is the number of the file that cannot be read, from 1, or 0; then the fourth is
// the reason, and the others are not complete.
void reduceParts(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const Reduction reduction = readKind(args[0]);
    const JoinedParts parts(args[1]);
    Block block{toSizeVector(args[2], "START"), toSizeVector(args[3], "COUNT"), {}};
    const unsigned flags = readDecodingFlags(args[4]);
    requireInside(parts, block);
    block.stride.resize(block.count.size(), 1);
    const ReductionPlan plan = planReduction(block, {args[5], args[6], args[7]});
    requireUnweighted(plan, reduction);

    JoinedSource source(parts, flags, entry);
    results[2] = vxCreateDoubleScalar(0);
    results[3] = textResult("");
    try {
        reduceInto(results, {source, block}, plan, reduction);
    } catch (const FailedPart& failed) {
        results[2] = vxCreateDoubleScalar(static_cast<double>(failed.part + 1));
        results[3] = textResult(failed.reason.c_str());
    }
}

} // namespace Ovard::gridio::datasetOperations
