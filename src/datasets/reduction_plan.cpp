// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/reduction_plan.h"

#include "data/elements/shapes.h"
#include "dataset_error_identifiers.h"
#include "datasets/structure_argument.h"

#include <algorithm>
#include <cmath>

namespace Ovard::gridio {
namespace {

class Planner {
public:
    Planner(const Block& block, const ReductionArguments& arguments) : arguments_(arguments)
    {
        for (const std::size_t length : block.count) {
            plan_.dimensions.emplace_back();
            plan_.dimensions.back().length = length;
        }
    }

    ReductionPlan make()
    {
        readReduced();
        readBins();
        readWeights();
        std::size_t step = 1;
        plan_.resultLengths.resize(rank());
        for (std::size_t i = rank(); i-- > 0;) {
            ReducedDimension& dimension = plan_.dimensions[i];
            dimension.step = step;
            plan_.resultLengths[i] = dimension.results;
            if (__builtin_mul_overflow(step, dimension.results, &step))
                vxErrMsgId(dataset::badArgument("bins", "numbers that memory can be counted by"));
        }
        return std::move(plan_);
    }

private:
    std::size_t rank() const { return plan_.dimensions.size(); }

    // By its place in the host's order.
    ReducedDimension& dimension(std::size_t place) { return plan_.dimensions[rank() - 1 - place]; }

    void readReduced()
    {
        constexpr const char* expected = "a row with true or false for each dimension";
        const std::vector<double> flags = readNumbers(arguments_.isReduced, "isReduced", expected);
        if (flags.size() != rank())
            vxErrMsgId(dataset::badArgument("isReduced", expected));
        for (std::size_t i = 0; i < rank(); ++i) {
            dimension(i).isReduced = flags[i] != 0;
            dimension(i).results = flags[i] != 0 ? 1 : dimension(i).length;
        }
    }

    void requireCells(const vxArray* a, const char* name, const char* expected) const
    {
        if (vxGetClassID(a) != vxCELL_CLASS || vxGetNumberOfElements(a) != rank())
            vxErrMsgId(dataset::badArgument(name, expected));
    }

    void readBins()
    {
        if (vxIsEmpty(arguments_.bins))
            return;
        requireCells(arguments_.bins, "bins", "a cell array with one cell for each dimension");
        for (std::size_t i = 0; i < rank(); ++i) {
            const vxArray* cell = vxGetCell(arguments_.bins, i);
            if (!vxIsEmpty(cell))
                setBins(dimension(i), cell);
        }
    }

    static void setBins(ReducedDimension& dimension, const vxArray* cell)
    {
        constexpr const char* expected =
            "one group's number for each index of the dimension, from 1, or 0 for none";
        const std::vector<double> numbers = readNumbers(cell, "bins", expected);
        if (numbers.size() != dimension.length)
            vxErrMsgId(dataset::badArgument("bins", expected));
        dimension.isReduced = true;
        dimension.results = 0;
        for (const double number : numbers) {
            if (!(number >= 0 && number <= 1e15) || std::trunc(number) != number)
                vxErrMsgId(dataset::badArgument("bins", expected));
            dimension.groups.push_back(static_cast<std::ptrdiff_t>(number) - 1);
            dimension.results = std::max(dimension.results, static_cast<std::size_t>(number));
        }
    }

    void readWeights()
    {
        const vxArray* weights = arguments_.weights;
        if (vxIsEmpty(weights))
            return;
        if (vxGetClassID(weights) == vxSTRUCT_CLASS) {
            setJointWeights(weights);
            return;
        }
        requireCells(
            weights, "weights",
            "a cell array with one cell for each dimension, or a structure with the fields "
            "dimensions and values");
        for (std::size_t i = 0; i < rank(); ++i) {
            const vxArray* cell = vxGetCell(weights, i);
            if (vxIsEmpty(cell))
                continue;
            dimension(i).weights = readWeightNumbers(cell, dimension(i).length);
            plan_.isWeighted = true;
        }
    }

    std::vector<double> readWeightNumbers(const vxArray* a, std::size_t count) const
    {
        constexpr const char* expected = "finite numbers, as many as the dimensions have indices";
        std::vector<double> numbers = readNumbers(a, "weights", expected);
        const bool areFinite = std::all_of(numbers.begin(), numbers.end(),
                                           [](double number) { return std::isfinite(number); });
        if (numbers.size() != count || !areFinite)
            vxErrMsgId(dataset::badArgument("weights", expected));
        return numbers;
    }

    void setJointWeights(const vxArray* structure)
    {
        constexpr const char* expected = "of dimensions that are counted from 1 and ascend";
        const StructureArgument joint(structure, "weights");
        std::size_t count = 1;
        double last = 0;
        for (const double place : readNumbers(joint.field("dimensions"), "weights", expected)) {
            if (!(place > last && place <= static_cast<double>(rank())) ||
                std::trunc(place) != place)
                vxErrMsgId(dataset::badArgument("weights", expected));
            last = place;
            ReducedDimension& one = dimension(static_cast<std::size_t>(place) - 1);
            one.jointStep = count;
            if (__builtin_mul_overflow(count, one.length, &count))
                vxErrMsgId(dataset::badArgument("weights", expected));
        }
        plan_.jointWeights = readWeightNumbers(joint.field("values"), count);
        plan_.isWeighted = true;
    }

    const ReductionArguments& arguments_;
    ReductionPlan plan_;
};

} // namespace

std::size_t ReductionPlan::resultCount() const { return productOf(resultLengths); }

ReductionPlan planReduction(const Block& block, const ReductionArguments& arguments)
{
    return Planner(block, arguments).make();
}

} // namespace Ovard::gridio
