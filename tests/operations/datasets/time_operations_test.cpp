// SPDX-License-Identifier: BSD-3-Clause
#include "tests/operations/datasets/dataset_test.h"

#include <cmath>
#include <limits>

using testing::DoubleNear;
using testing::ElementsAre;
using testsupport::raisesInDatasets;

namespace {

const double gap = std::numeric_limits<double>::quiet_NaN();
const char* const hours = "hours since 2000-01-01";
const char* const days = "days since 2000-01-01";

class Times : public testsupport::DatasetTest {};

} // namespace

TEST_F(Times, BecomeDayNumbersInTheShapeOfTheValues)
{
    const Value values = Value::numeric<double>({1, 3}, {0, 36, gap});
    const Value datenum = result("timesToDatenum", {values, hours, "standard"});
    EXPECT_EQ(datenum.describe(), Value::row<double>({730486, 730487.5, gap}).describe());
    const Value whole = Value::column<std::int64_t>({-24, 24});
    EXPECT_EQ(result("timesToDatenum", {whole, hours, "gregorian"}),
              Value::column<double>({730485, 730487}));
}

TEST_F(Times, BecomePartsInEveryCalendar)
{
    const Value values = Value::row<double>({59.25, gap});
    const Value parts = result("timesToParts", {values, days, "360_day"});
    EXPECT_EQ(parts.dims(), (Dims{2, 6}));
    EXPECT_EQ(parts.describe(),
              Value::numeric<double>({2, 6}, {2000, gap, 2, gap, 30, gap, 6, gap, 0, gap, 0, gap})
                  .describe());
}

TEST_F(Times, AreRoundedAsSinglesForSingles)
{
    const Value values =
        Value::scalar<float>(19000.1F); // 2 h 23 min 26.25 s, give or take two minutes
    const Value parts = result("timesToParts", {values, "days since 1950-01-01", "standard"});
    EXPECT_THAT(numbers(parts), ElementsAre(2002, 1, 8, 2, 23, 0));
}

TEST_F(Times, BecomeTextsThatAreWrittenAlike)
{
    const Value texts = result("timesToText", {Value::row<double>({0, 6.5, gap}), hours, "noleap"});
    EXPECT_EQ(texts.dims(), (Dims{1, 3}));
    EXPECT_THAT(DatasetTest::texts(texts),
                ElementsAre("2000-01-01 00:00", "2000-01-01 06:30", "NaT"));
}

TEST_F(Times, ComeBackFromParts)
{
    const Value rows = Value::numeric<double>({2, 6}, {2000, gap, 1, 1, 2, 1, 0, 0, 30, 0, 1.5, 0});
    EXPECT_EQ(result("partsToTimes", {rows, "seconds since 2000-01-01", "noleap"}).describe(),
              Value::column<double>({88201.5, gap}).describe());
    EXPECT_EQ(result("partsToTimes", {row({2000, 2, 30}), days, "360_day"}), Value::number(59));
}

TEST_F(Times, ComeBackFromDayNumbers)
{
    const Value datenum = Value::row<double>({730486.25, gap});
    EXPECT_EQ(result("datenumToTimes", {datenum, hours, "standard"}).describe(),
              Value::row<double>({6, gap}).describe());
}

TEST_F(Times, AreTheBeginningAndTheEndOfAPeriod)
{
    const struct {
        const char* text;
        double begin;
        double end;
        bool isPeriod;
    } periods[] = {{"2000", 0, 360, true},
                   {"2000-02", 30, 60, true},
                   {"2000-02-30", 59, 60, true},
                   {"2000-02-30 18:00", 59.75, 59.75, false}};
    for (const auto& period : periods) {
        SCOPED_TRACE(period.text);
        const Values both = results("periodToTimes", {period.text, days, "360_day"}, 2);
        EXPECT_THAT(numbers(both.at(0)), ElementsAre(period.begin, period.end));
        EXPECT_EQ(both.at(1).toLogical(), period.isPeriod);
    }
}

TEST_F(Times, AreInterpretedInMonthsByTheLastArgument)
{
    const char* const months = "months since 2000-01-31";
    EXPECT_THAT(numbers(result("timesToParts", {1, months, "standard", "calendar"})),
                ElementsAre(2000, 2, 29, 0, 0, 0));
    EXPECT_THAT(numbers(result("timesToParts", {1, months, "standard", "udunits"})),
                ElementsAre(2000, 3, 1, 10, DoubleNear(29, 0.01), DoubleNear(3.831, 0.1)));
    EXPECT_FALSE(attemptDataset("timesToParts", {1, months, "standard"}).succeeded());
    EXPECT_FALSE(attemptDataset("timesToParts", {1, months, "standard", "lunar"}).succeeded());
}

TEST_F(Times, AreReportedWithTheirPlaceWhenInvalid)
{
    EXPECT_THAT(attemptDataset("timesToText", {Value::row<double>({1, 1e300}), days, "standard"}),
                raisesInDatasets("unrepresentableTime",
                                 {2L, "1e+300", "a time must lie within 292,000 years of 1970"}));
    EXPECT_THAT(attemptDataset("timesToDatenum", {1, days, "noleap"}),
                raisesInDatasets("unrepresentableTime",
                                 {1L, "1", "dates of calendar noleap have no datenum"}));
    EXPECT_THAT(attemptDataset("partsToTimes", {row({2000, 1.5, 1}), days, "standard"}),
                raisesInDatasets("unrepresentableTime",
                                 {1L, "[2000 1.5 1]", "its month is not a whole number in range"}));
}

TEST_F(Times, AreRefusedWithoutAMeaning)
{
    for (const Values& arguments : {Values{1, "metres", "standard"}, Values{1, days, "lunar"}}) {
        const Outcome outcome = attemptDataset("timesToDatenum", arguments);
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->identifier, "Ovard:gridio:dataset:unreadableTime");
    }
    EXPECT_THAT(
        attemptDataset("timesToText", {"now", days, "standard"}),
        raisesInDatasets("badArgument", {"values", "numbers, in an array of any numeric class"}));
    const Outcome outcome = attemptDataset("periodToTimes", {"2013-02-30", days, "standard"});
    ASSERT_TRUE(outcome.raised);
    EXPECT_EQ(outcome.raised->identifier, "Ovard:gridio:dataset:unreadableTime");
}
