// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"
#include "tests/support/library_file.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

using standalone::Dims;
using standalone::Value;
using testing::ElementsAre;
using testsupport::raisesInDatasets;
using testsupport::require;

namespace {

constexpr double gap = std::numeric_limits<double>::quiet_NaN();
using Lengths = std::vector<std::size_t>; // in the host's order
using Numbers = std::vector<double>;

// A block of a made variable, to be reduced by the module and by plain loops.
struct Task {
    std::string kind;
    Lengths start, count;
    std::vector<bool> isReduced;
    std::map<std::size_t, Numbers> bins;    // by dimension
    std::map<std::size_t, Numbers> weights; // by dimension
};

struct Expected {
    Lengths lengths;
    Numbers values;
    Numbers counts;
};

// In long double, two passes for spreads.
double reduced(const std::string& kind, Numbers values, const Numbers& weights, bool isWeighted)
{
    const std::size_t n = values.size();
    if (kind == "count")
        return static_cast<double>(n);
    if (n == 0)
        return kind == "weight" ? 0 : gap;
    long double sum = 0;
    long double total = 0;
    for (std::size_t i = 0; i < n; ++i) {
        sum += static_cast<long double>(values[i]) * weights[i];
        total += weights[i];
    }
    long double spread = 0;
    for (std::size_t i = 0; i < n; ++i)
        spread += weights[i] * (values[i] - sum / total) * (values[i] - sum / total);
    const long double divisor = isWeighted ? total : std::max<long double>(total - 1, 1);
    if (kind == "median") {
        std::sort(values.begin(), values.end());
        return (values[(n - 1) / 2] + values[n / 2]) / 2;
    }
    const std::map<std::string, long double> results = {
        {"sum", sum},
        {"mean", sum / total},
        {"var", spread / divisor},
        {"std", std::sqrt(spread / divisor)},
        {"min", *std::min_element(values.begin(), values.end())},
        {"max", *std::max_element(values.begin(), values.end())},
        {"weight", total}};
    return static_cast<double>(results.at(kind));
}

class Reduce : public testsupport::DatasetTest {
protected:
    Lengths lengths = {7, 5, 6};
    Numbers stored; // with gaps, in the host's order

    // A variable of doubles with gaps, far from zero, in chunks or not.
    int openField(bool isChunked)
    {
        std::mt19937 random(42);
        const std::string path = folder.file("field.nc");
        auto file = testsupport::LibraryFile::create(path);
        int dimids[3];
        for (std::size_t i = 0; i < 3; ++i)
            require(nc_def_dim(file.ncid(), std::string(1, static_cast<char>('a' + i)).c_str(),
                               lengths[2 - i], &dimids[i]));
        int varid = 0;
        require(nc_def_var(file.ncid(), "v", NC_DOUBLE, 3, dimids, &varid));
        if (isChunked) {
            const std::size_t chunks[] = {4, 2, 3};
            require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, chunks));
            require(nc_def_var_deflate(file.ncid(), varid, 1, 1, 1));
        }
        const double missing = -1;
        require(nc_put_att_double(file.ncid(), varid, "missing_value", NC_DOUBLE, 1, &missing));
        stored.assign(lengths[0] * lengths[1] * lengths[2], 0);
        for (double& value : stored)
            value = random() % 5 == 0 ? -1 : 1e6 + static_cast<double>(random() % 1000) / 7;
        require(nc_put_var_double(file.ncid(), varid, stored.data()));
        file.close();
        std::replace(stored.begin(), stored.end(), -1.0, gap);
        return openFile("field.nc");
    }

    static Value rowOf(const Lengths& lengths)
    {
        return Value::row(Numbers(lengths.begin(), lengths.end()));
    }
    static Value cellsOf(const std::map<std::size_t, Numbers>& byDimension)
    {
        Values cells(3, Value::empty());
        for (const auto& [dimension, numbers] : byDimension)
            cells[dimension] = Value::row(numbers);
        return byDimension.empty() ? Value::empty() : Value::cell({1, 3}, cells);
    }

    Values reduce(int ncid, const Task& task)
    {
        return results("reduce",
                       {task.kind, ncid, 0, rowOf(task.start), rowOf(task.count), row({1, 1, 1}),
                        31, Value::logical({1, 3}, task.isReduced), cellsOf(task.bins),
                        cellsOf(task.weights)},
                       2);
    }

    Expected expected(const Task& task) const
    {
        Expected result;
        for (std::size_t d = 0; d < 3; ++d) {
            const auto bins = task.bins.find(d);
            result.lengths.push_back(bins != task.bins.end()
                                         ? static_cast<std::size_t>(*std::max_element(
                                               bins->second.begin(), bins->second.end()))
                                     : task.isReduced[d] ? 1
                                                         : task.count[d]);
        }
        const std::size_t count = result.lengths[0] * result.lengths[1] * result.lengths[2];
        std::vector<Numbers> values(count);
        std::vector<Numbers> weights(count);
        Lengths at(3);
        for (at[2] = 0; at[2] < task.count[2]; ++at[2])
            for (at[1] = 0; at[1] < task.count[1]; ++at[1])
                for (at[0] = 0; at[0] < task.count[0]; ++at[0])
                    add(task, at, result.lengths, values, weights);
        for (std::size_t i = 0; i < count; ++i) {
            result.values.push_back(
                reduced(task.kind, values[i], weights[i], !task.weights.empty()));
            result.counts.push_back(static_cast<double>(values[i].size()));
        }
        return result;
    }

private:
    void add(const Task& task, const Lengths& at, const Lengths& resultLengths,
             std::vector<Numbers>& values, std::vector<Numbers>& weights) const
    {
        std::size_t index = 0;
        std::size_t step = 1;
        std::size_t from = 0;
        std::size_t fromStep = 1;
        double weight = 1;
        for (std::size_t d = 0; d < 3; ++d) {
            std::size_t place = task.isReduced[d] ? 0 : at[d];
            if (const auto bins = task.bins.find(d); bins != task.bins.end()) {
                if (bins->second[at[d]] == 0)
                    return;
                place = static_cast<std::size_t>(bins->second[at[d]]) - 1;
            }
            if (const auto own = task.weights.find(d); own != task.weights.end())
                weight *= own->second[at[d]];
            index += place * step;
            step *= resultLengths[d];
            from += (task.start[d] + at[d]) * fromStep;
            fromStep *= lengths[d];
        }
        if (std::isnan(stored[from]))
            return;
        values[index].push_back(stored[from]);
        weights[index].push_back(weight);
    }
};

void expectClose(const Value& actual, const Numbers& expected)
{
    const Numbers numbers = actual.elements<double>();
    ASSERT_EQ(numbers.size(), expected.size());
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        if (std::isnan(expected[i]))
            EXPECT_TRUE(std::isnan(numbers[i])) << i;
        else
            EXPECT_NEAR(numbers[i], expected[i], 1e-13 * std::abs(expected[i]) + 1e-300) << i;
    }
}

const char* const kinds[] = {"mean", "sum", "min", "max", "std", "var", "count", "median"};

} // namespace

TEST_F(Reduce, GivesWhatPlainLoopsGiveOverAnyDimensions)
{
    for (const bool isChunked : {false, true}) {
        const int ncid = openField(isChunked);
        for (const char* kind : kinds) {
            for (unsigned which = 0; which < 8; ++which) {
                SCOPED_TRACE(std::string(kind) + " " + std::to_string(which));
                const Task task{kind,      {1, 0, 2},
                                {6, 5, 3}, {(which & 1) != 0, (which & 2) != 0, (which & 4) != 0},
                                {},        {}};
                const Values actual = reduce(ncid, task);
                const Expected wanted = expected(task);
                expectClose(actual.at(0), wanted.values);
                expectClose(actual.at(1), wanted.counts);
            }
        }
        closeFile(ncid);
    }
}

TEST_F(Reduce, ReturnsOneResultForEachGroup)
{
    const int ncid = openField(true);
    const Numbers groups[] = {{1, 3, 0, 1, 1, 3, 3}, {1, 1, 0, 2, 2}, {4, 1, 1, 4, 1, 0}};
    for (const char* kind : kinds) {
        for (std::size_t grouped = 0; grouped < 3; ++grouped) {
            for (unsigned which = 0; which < 8; ++which) {
                SCOPED_TRACE(std::string(kind) + " " + std::to_string(which));
                const Task task{kind,
                                {0, 0, 0},
                                lengths,
                                {(which & 1) != 0, (which & 2) != 0, (which & 4) != 0},
                                {{grouped, groups[grouped]}},
                                {}};
                const Values actual = reduce(ncid, task);
                expectClose(actual.at(0), expected(task).values);
                expectClose(actual.at(1), expected(task).counts);
            }
        }
    }
}

TEST_F(Reduce, MultipliesTheWeightsOfDimensions)
{
    const int ncid = openField(true);
    for (const char* kind : {"mean", "sum", "min", "max", "std", "var", "count", "weight"}) {
        for (unsigned which = 0; which < 8; ++which) {
            SCOPED_TRACE(std::string(kind) + " " + std::to_string(which));
            const Task task{kind,
                            {0, 0, 0},
                            lengths,
                            {(which & 1) != 0, (which & 2) != 0, (which & 4) != 0},
                            {{2, {1, 2, 1, 2, 1, 2}}},
                            {{1, {1, 2, 3, 2, 1}}, {0, {.5, 1, 1, 1, 1, 1, .5}}}};
            expectClose(reduce(ncid, task).at(0), expected(task).values);
        }
    }
}

TEST_F(Reduce, TakesWeightsOfSeveralDimensionsTogether)
{
    const int ncid = openField(true);
    const Task task{"mean",  {0, 0, 0},
                    lengths, {true, true, false},
                    {},      {{0, {1, 2, 3, 4, 5, 6, 7}}, {1, {1, 2, 3, 2, 1}}}};
    Numbers product;
    for (const double b : task.weights.at(1))
        for (const double a : task.weights.at(0))
            product.push_back(a * b);
    const Value together = Value::structure(
        {{"dimensions", row({1, 2})}, {"values", Value::numeric<double>({7, 5}, product)}});
    const Value mean =
        result("reduce", {"mean", ncid, 0, row({0, 0, 0}), rowOf(lengths), row({1, 1, 1}), 31,
                          Value::logical({1, 3}, {true, true, false}), Value::empty(), together});
    EXPECT_EQ(mean.dims(), (Dims{1, 1, 6}));
    expectClose(mean, expected(task).values);
}

// One big number swallows the small ones in a plain sum, and their variance in a plain formula.
TEST_F(Reduce, LosesNothingToRounding)
{
    const int ncid = openMade("dimensions: x = 5; variables: double v(x), w(x); data: v = 1e16, 1, "
                              "1, 1, -1e16; w = 1e9, 1000000000.1, 1000000000.2, _, _;");
    const auto column = [&](const char* kind, int varid) {
        return result("reduce",
                      {kind, ncid, varid, 0, 5, 1, 31, true, Value::empty(), Value::empty()})
            .toDouble();
    };
    EXPECT_EQ(column("sum", 0), 3);
    EXPECT_NEAR(column("var", 1), 0.01, 1e-8); // of the doubles that the file holds
    EXPECT_EQ(column("mean", 1), 1000000000.1);
}

TEST_F(Reduce, ReturnsMissingValuesForNothing)
{
    const int ncid = openMade("dimensions: t = UNLIMITED; x = 2; variables: short v(t, x), w(x);");
    const Value none = Value::empty();
    for (const char* kind : kinds) {
        const double expected = std::string(kind) == "count" ? 0 : gap;
        const Value ofGaps = result("reduce", {kind, ncid, 1, 0, 2, 1, 31, true, none, none});
        expectClose(ofGaps, {expected});
        const Value ofNone = result("reduce", {kind, ncid, 0, row({0, 0}), row({2, 0}), row({1, 1}),
                                               31, row({0, 1}), none, none});
        expectClose(ofNone, {expected, expected});
    }
}

TEST_F(Reduce, ReturnsTheValueOfAVariableWithoutDimensions)
{
    const int ncid = openMade("variables: short v; v:scale_factor = .5; data: v = 3;");
    const Value none = Value::empty();
    EXPECT_EQ(result("reduce", {"mean", ncid, 0, none, none, none, 31, none, none, none}),
              Value::number(1.5));
}

TEST_F(Reduce, RefusesArgumentsThatDoNotFit)
{
    const int ncid = openMade("dimensions: x = 2; variables: short v(x); char c(x);");
    const Value none = Value::empty();
    const auto attempt = [&](const Value& kind, int varid, const Value& isReduced,
                             const Value& bins, const Value& weights) {
        return attemptDataset("reduce", {kind, ncid, varid, 0, 2, 1, 31, isReduced, bins, weights});
    };
    const auto isNamed = [](const std::string& parameter) {
        return testing::Truly([parameter](const Outcome& outcome) {
            return outcome.raised &&
                   outcome.raised->identifier == "Ovard:gridio:dataset:badArgument" &&
                   outcome.raised->arguments.at(0) == standalone::Argument(parameter);
        });
    };
    EXPECT_THAT(attempt("mode", 0, true, none, none), isNamed("kind"));
    EXPECT_THAT(attempt("mean", 1, true, none, none), isNamed("varid"));
    EXPECT_THAT(attempt("mean", 0, row({1, 1}), none, none), isNamed("isReduced"));
    EXPECT_THAT(attempt("mean", 0, "x", none, none), isNamed("isReduced"));
    for (const Value& bad : {row({1}), row({1, 1.5}), row({1, -1}), row({1, gap}), row({1, 1e300})})
        EXPECT_THAT(attempt("mean", 0, true, Value::cell({1, 1}, {bad}), none), isNamed("bins"));
    EXPECT_THAT(attempt("mean", 0, true, 1, none), isNamed("bins"));
    for (const Value& bad : {row({1}), row({1, gap}), Value("ab")})
        EXPECT_THAT(attempt("mean", 0, true, none, Value::cell({1, 1}, {bad})), isNamed("weights"));
    EXPECT_THAT(attempt("mean", 0, true, none, Value::structure({{"values", row({1, 1})}})),
                isNamed("weights"));
    EXPECT_THAT(attempt("median", 0, true, none, Value::cell({1, 1}, {row({1, 1})})),
                isNamed("weights"));
}

TEST_F(Reduce, EndsWhenTheUserWantsAnInterrupt)
{
    const int ncid = openField(true);
    host.interruptQuestion(1);
    const Task task{"mean", {0, 0, 0}, lengths, {true, true, true}, {}, {}};
    EXPECT_ANY_THROW(reduce(ncid, task));
    host.interruptQuestion(0);
}
