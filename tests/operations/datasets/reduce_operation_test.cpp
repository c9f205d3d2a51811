// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/reduction_test.h"

using standalone::Dims;
using standalone::Value;
using testing::ElementsAre;
using testsupport::Expected;
using testsupport::gap;
using testsupport::Lengths;
using testsupport::Numbers;
using testsupport::raisesInDatasets;
using testsupport::Task;

namespace {

class Reduce : public testsupport::ReductionTest {};

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
    EXPECT_EQ(host.operationsEnded(), 1u);
}

TEST_F(Reduce, ShowsItsProgressUntilItEnds)
{
    const int ncid = openField(true);
    for (const char* kind : {"mean", "median"}) {
        host.reset();
        reduce(ncid, {kind, {1, 0, 2}, {6, 5, 3}, {true, false, false}, {}, {}});
        EXPECT_GE(host.progressShown(), 2u);
        EXPECT_EQ(host.operationsEnded(), 1u);
        EXPECT_THAT(host.breaches(), ElementsAre());
    }
}
