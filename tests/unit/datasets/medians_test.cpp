// SPDX-License-Identifier: BSD-3-Clause
// Medians in pieces and by counting, of values in memory.
#include "data/elements/shapes.h"
#include "datasets/medians.h"
#include "datasets/reduction.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

using namespace Ovard::gridio;

namespace {

// The values of a variable of three dimensions, passed in slabs of one index of the slowest.
class MemorySource : public ValueSource {
public:
    MemorySource(SizeVector lengths, std::vector<double> values)
        : lengths_(std::move(lengths)), values_(std::move(values))
    {
    }

    void forEachSlab(const Block& block, const Visit& visit) override
    {
        ++passes;
        std::vector<double> slab(block.count[1] * block.count[2]);
        for (std::size_t i = 0; i < block.count[0]; ++i) {
            auto target = slab.begin();
            for (std::size_t j = 0; j < block.count[1]; ++j)
                for (std::size_t k = 0; k < block.count[2]; ++k)
                    *target++ = values_[((block.start[0] + i) * lengths_[1] + block.start[1] + j) *
                                            lengths_[2] +
                                        block.start[2] + k];
            visit({Span{0, 1, 1, i}, Span{0, block.count[1], 1, 0}, Span{0, block.count[2], 1, 0}},
                  slab.data());
        }
    }

    int passes = 0;

private:
    SizeVector lengths_;
    std::vector<double> values_;
};

ReductionPlan planOf(const SizeVector& lengths, const std::vector<bool>& isReduced,
                     const std::map<std::size_t, std::vector<std::ptrdiff_t>>& groups)
{
    ReductionPlan plan;
    plan.dimensions.resize(lengths.size());
    plan.resultLengths.resize(lengths.size());
    std::size_t step = 1;
    for (std::size_t i = lengths.size(); i-- > 0;) {
        ReducedDimension& dimension = plan.dimensions[i];
        dimension.length = lengths[i];
        dimension.isReduced = isReduced[i];
        dimension.results = isReduced[i] ? 1 : lengths[i];
        if (const auto found = groups.find(i); found != groups.end()) {
            dimension.groups = found->second;
            dimension.isReduced = true;
            dimension.results = static_cast<std::size_t>(
                *std::max_element(found->second.begin(), found->second.end()) + 1);
        }
        dimension.step = step;
        plan.resultLengths[i] = dimension.results;
        step *= dimension.results;
    }
    return plan;
}

// By sorting the values of each result.
std::vector<double> sortedMedians(const SizeVector& lengths, const std::vector<double>& values,
                                  const ReductionPlan& plan)
{
    std::vector<std::vector<double>> lists(plan.resultCount());
    SizeVector at(lengths.size());
    for (const double value : values) {
        std::size_t result = 0;
        bool isIn = !std::isnan(value);
        for (std::size_t i = 0; i < at.size(); ++i) {
            const ReducedDimension& dimension = plan.dimensions[i];
            if (!dimension.groups.empty()) {
                isIn = isIn && dimension.groups[at[i]] >= 0;
                result +=
                    static_cast<std::size_t>(std::max<std::ptrdiff_t>(dimension.groups[at[i]], 0)) *
                    dimension.step;
            } else if (!dimension.isReduced) {
                result += at[i] * dimension.step;
            }
        }
        if (isIn)
            lists[result].push_back(value);
        for (std::size_t i = at.size(); i-- > 0 && ++at[i] == lengths[i];)
            at[i] = 0;
    }
    std::vector<double> medians;
    for (std::vector<double>& list : lists) {
        std::sort(list.begin(), list.end());
        const std::size_t n = list.size();
        medians.push_back(n == 0 ? std::numeric_limits<double>::quiet_NaN()
                          : n % 2 == 1 || list[n / 2 - 1] == list[n / 2]
                              ? list[n / 2]
                              : list[n / 2 - 1] / 2 + list[n / 2] / 2);
    }
    return medians;
}

std::vector<double> madeValues(std::size_t count, std::mt19937& engine)
{
    const double special[] = {0.0,
                              -0.0,
                              1e308,
                              -1e308,
                              5e-324,
                              std::numeric_limits<double>::infinity(),
                              std::numeric_limits<double>::quiet_NaN()};
    std::vector<double> values(count);
    for (double& value : values)
        value = engine() % 8 == 0 ? special[engine() % std::size(special)]
                                  : std::ldexp(static_cast<double>(engine()) - 2e9,
                                               static_cast<int>(engine() % 40) - 20);
    return values;
}

testing::Matcher<std::vector<double>> areTheNumbers(const std::vector<double>& numbers)
{
    std::vector<testing::Matcher<double>> each;
    for (const double number : numbers)
        each.push_back(testing::NanSensitiveDoubleEq(number));
    return testing::ElementsAreArray(each);
}

} // namespace

TEST(MedianOfBlock, IsTheSameHoweverFewValuesAreKept)
{
    const SizeVector lengths{12, 5, 7};
    std::mt19937 engine(3);
    const std::vector<double> values = madeValues(productOf(lengths), engine);
    const std::vector<std::ptrdiff_t> inOrder{0, 0, 0, 1, 1, -1, 1, 2, 2, 3, 3, 3};
    const std::vector<std::ptrdiff_t> mixed{2, 0, 1, 2, 0, 1, -1, 0, 1, 2, 0, 1};
    const std::vector<std::ptrdiff_t> withoutSome{0, 4, 0, 4, 2, 2, 0};
    const std::vector<std::map<std::size_t, std::vector<std::ptrdiff_t>>> groupings{
        {}, {{0, inOrder}}, {{0, mixed}}, {{2, withoutSome}}, {{0, mixed}, {2, withoutSome}}};
    for (int reduced = 0; reduced < 8; ++reduced)
        for (const auto& groups : groupings)
            for (const std::size_t mostKept : {1U, 3U, 20U, 70U, 5000U, 100000U}) {
                const ReductionPlan plan = planOf(
                    lengths, {(reduced & 1) != 0, (reduced & 2) != 0, (reduced & 4) != 0}, groups);
                MemorySource source(lengths, values);
                const Block block{SizeVector(3, 0), lengths, StrideVector(3, 1)};
                std::vector<double> medians(plan.resultCount()), counts(plan.resultCount());
                medianOfBlock({source, block}, plan, {medians.data(), counts.data()}, mostKept);
                EXPECT_THAT(medians, areTheNumbers(sortedMedians(lengths, values, plan)))
                    << "dimensions " << reduced << ", kept " << mostKept;
            }
}

TEST(MedianOfBlock, CountsInAFewPassesWhatCannotBeKept)
{
    const SizeVector lengths{100, 30, 30};
    std::mt19937 engine(4);
    const std::vector<double> values = madeValues(productOf(lengths), engine);
    const ReductionPlan plan = planOf(lengths, {true, true, true}, {});
    MemorySource source(lengths, values);
    const Block block{SizeVector(3, 0), lengths, StrideVector(3, 1)};
    double median = 0;
    double count = 0;
    medianOfBlock({source, block}, plan, {&median, &count}, 5000);
    EXPECT_THAT(median, testing::NanSensitiveDoubleEq(sortedMedians(lengths, values, plan)[0]));
    EXPECT_EQ(source.passes, Selector::passes);
}
