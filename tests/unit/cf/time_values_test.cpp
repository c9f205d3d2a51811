// SPDX-License-Identifier: BSD-3-Clause
// Comparisons with an independent library are in tests/cf.
#include "cf/time_values.h"

#include "cf/time_text.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <string>
#include <utility>

namespace Ovard::gridio::cf {
namespace {

constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max();
constexpr std::int64_t lowest = std::numeric_limits<std::int64_t>::min();
constexpr double infinity = std::numeric_limits<double>::infinity();

TimeUnits unitsOf(const std::string& text, Calendar calendar = Calendar::standard,
                  LongUnits longUnits = LongUnits::calendarSteps)
{
    const auto units = parseTimeUnits(text, calendar, longUnits);
    EXPECT_TRUE(units) << (units ? "" : units.reason());
    return units ? *units : TimeUnits{calendar, 0, 1, 1, 0};
}

template <class... Rounded> std::string textOf(const TimeUnits& units, Rounded... valueAndRounding)
{
    const auto moment = momentOfValue(units, valueAndRounding...);
    if (!moment)
        return "out of range";
    return momentText(units.calendar, *moment, exactPrecision(&*moment, 1));
}

TEST(MomentOfValue, RoundsToTheNearestMicrosecondOfTwoToTheEvenOne)
{
    const TimeUnits microseconds = unitsOf("us since 1970-01-01");
    const std::pair<double, Moment> values[] = {
        {0.4, 0},   {0.5, 0},   {0.6, 1},   {1.5, 2},    {2.5, 2},     {-0.4, 0},         {-0.5, 0},
        {-0.6, -1}, {-1.5, -2}, {-2.5, -2}, {1e-300, 0}, {-1e-300, 0}, {1e15 + 0.5, 1e15}};
    for (const auto& [value, moment] : values)
        EXPECT_EQ(momentOfValue(microseconds, value, Rounding::toMicrosecond), moment) << value;
}

// In both cases the product of value and unit, rounded to a double, ends in a half.
TEST(MomentOfValue, IsNotMisledByTheRoundingOfAProduct)
{
    const TimeUnits days = unitsOf("days since 1970-01-01");
    const double half = 0.5 / 86'400'000'000.0; // below half a microsecond, or above
    const double exactly = half * 86'400'000'000.0;
    ASSERT_EQ(exactly, 0.5);
    const double error = std::fma(half, 86'400'000'000.0, -0.5);
    ASSERT_NE(error, 0);
    EXPECT_EQ(momentOfValue(days, half, Rounding::toMicrosecond), error > 0 ? 1 : 0);
    EXPECT_EQ(momentOfValue(days, -half, Rounding::toMicrosecond), error > 0 ? -1 : 0);
    EXPECT_EQ(momentOfValue(days, 3 * half, Rounding::toMicrosecond),
              std::fma(3 * half, 86'400'000'000.0, -1.5) >= 0 ? 2 : 1);
}

TEST(MomentOfValue, IsNoTimeForNanAndInfinityOnly)
{
    for (const char* text : {"days since 2000-01-01", "months since 2000-01-01"})
        for (const double value : {std::nan(""), infinity, -infinity})
            EXPECT_EQ(momentOfValue(unitsOf(text), value, Rounding::withinDouble), notATime);
}

TEST(MomentOfValue, RefusesWhatIsOutOfRange)
{
    for (const char* text : {"us since 1970-01-01", "s since 1969-12-31", "days since 9000-01-01",
                             "years since 280000-01-01", "months since 2000-01-31"}) {
        const TimeUnits units = unitsOf(text);
        for (const double value : {9.96921e36, -9.96921e36, 1e300, -1e300, 9.3e18, -9.3e18})
            EXPECT_EQ(textOf(units, value, Rounding::withinDouble), "out of range") << text;
        EXPECT_EQ(textOf(units, lowest), "out of range") << text;
    }
    EXPECT_EQ(textOf(unitsOf("us since 1970-01-02"), largest), "out of range");
    EXPECT_EQ(textOf(unitsOf("us since 1969-12-31"), lowest + 1), "out of range");
    EXPECT_EQ(textOf(unitsOf("ms since 1970-01-01"), largest / 999), "out of range");

    const TimeUnits lengths =
        unitsOf("years since 2000-01-01", Calendar::standard, LongUnits::udunitsLengths);
    EXPECT_EQ(textOf(lengths, largest), "out of range");
    EXPECT_EQ(textOf(lengths, lowest), "out of range");
    EXPECT_EQ(textOf(lengths, std::int64_t{292'300}), "out of range");
    EXPECT_EQ(textOf(lengths, std::int64_t{292'200}).substr(0, 6), "294199");
}

TEST(MomentOfValue, ReachesTheEndsOfTheRange)
{
    const TimeUnits units = unitsOf("us since 1970-01-01");
    EXPECT_EQ(momentOfValue(units, largest), largest);
    EXPECT_EQ(momentOfValue(units, lowest + 1), lowest + 1);
    EXPECT_EQ(momentOfValue(units, lowest), std::nullopt); // it would be notATime
    const double last = 9'223'372'036'854'774'784.0;
    EXPECT_EQ(momentOfValue(units, last, Rounding::toMicrosecond), static_cast<std::int64_t>(last));
}

TEST(MomentOfValue, RoundsWholeNanoseconds)
{
    const TimeUnits units = unitsOf("nanoseconds since 1970-01-01");
    const std::pair<std::int64_t, Moment> values[] = {
        {0, 0}, {499, 0}, {500, 0}, {501, 1}, {1500, 2}, {-500, 0}, {-501, -1}, {-1500, -2}};
    for (const auto& [value, moment] : values) {
        EXPECT_EQ(momentOfValue(units, value), moment) << value;
        EXPECT_EQ(momentOfValue(units, static_cast<double>(value), Rounding::toMicrosecond),
                  moment);
    }
    EXPECT_EQ(textOf(units, std::int64_t{1'400'000'000'123'456'000}), "2014-05-13 16:53:20.123456");
}

TEST(MomentOfValue, MakesHoursWholeWithinThePrecisionOfTheStoredType)
{
    const TimeUnits days = unitsOf("days since 0001-01-01");
    const TimeUnits recentDays = unitsOf("days since 1950-01-01");
    int apart = 0;
    for (int hour = 0; hour < 1000; ++hour) {
        const Moment whole = hour * microsecondsPerHour;
        const double value = *valueOfMoment(days, whole);
        apart += momentOfValue(days, value, Rounding::toMicrosecond) == whole ? 0 : 1;
        EXPECT_EQ(momentOfValue(days, value, Rounding::withinDouble), whole) << hour;
        const auto single = static_cast<float>(*valueOfMoment(recentDays, whole));
        EXPECT_EQ(momentOfValue(recentDays, single, Rounding::withinSingle), whole) << hour;
    }
    EXPECT_GT(apart, 100); // else the values would show nothing
    EXPECT_EQ(textOf(recentDays, 1 / 256.0, Rounding::withinSingle), "1950-01-01 00:05:37.500");

    const TimeUnits seconds = unitsOf("seconds since 1970-01-01"); // exact to a microsecond
    for (const Rounding rounding : {Rounding::toMicrosecond, Rounding::withinDouble})
        EXPECT_EQ(textOf(seconds, 1.4e9 + 1e-6, rounding), "2014-05-13 16:53:20.000001");
}

// All hours of a few days in each century, counted in each unit.
TEST(MomentOfValue, FindsEveryHourAgainThatADoubleWasMadeOf)
{
    for (const char* unit : {"seconds", "minutes", "hours", "days", "weeks"}) {
        const TimeUnits units = unitsOf(std::string(unit) + " since 0001-01-01 00:30");
        for (std::int64_t century = -20; century < 40; ++century)
            for (int hour = 0; hour < 100; ++hour) {
                const Moment moment = *momentOfDay(century * 36'524, hour * microsecondsPerHour);
                const auto value = valueOfMoment(units, moment);
                ASSERT_TRUE(value);
                ASSERT_EQ(momentOfValue(units, *value, Rounding::withinDouble), moment) << *value;
            }
    }
}

TEST(MomentOfValue, StepsThroughMonthsAndYearsOfTheCalendar)
{
    const struct {
        const char* units;
        double value;
        const char* text;
    } rows[] = {
        {"months since 2000-01-31", 0, "2000-01-31"},
        {"months since 2000-01-31", 1, "2000-02-29"},
        {"months since 2000-01-31", 2, "2000-03-31"},
        {"months since 2000-01-31", -1, "1999-12-31"},
        {"months since 2000-01-31 06:00", 13, "2001-02-28 06:00"},
        {"months since 2000-01-01", 0.5, "2000-01-16 12:00"},
        {"months since 2000-01-01", -0.5, "1999-12-16 12:00"},
        {"months since 2000-01-01", 1.5, "2000-02-15 12:00"},
        {"years since 2000-02-29", 1, "2001-02-28"},
        {"years since 2000-02-29", 4, "2004-02-29"},
        {"years since 2000-01-01", 0.5, "2000-07-02"},
        {"years since 1500-10-10", 82, "1582-10-15"},
        {"years since 0000-01-01", -1, "-0001-01-01"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(textOf(unitsOf(row.units), row.value, Rounding::toMicrosecond), row.text)
            << row.value << ' ' << row.units;
    EXPECT_EQ(textOf(unitsOf("months since 2000-01-31"), std::int64_t{13}), "2001-02-28");
}

TEST(MomentOfValue, CountsYearsOfUdunitsInDays)
{
    const TimeUnits units =
        unitsOf("years since 1970-01-01", Calendar::standard, LongUnits::udunitsLengths);
    EXPECT_EQ(momentOfValue(units, std::int64_t{1}), 31'556'925'974'678); // and 0.4
    EXPECT_EQ(momentOfValue(units, std::int64_t{5}), 157'784'629'873'392);
    EXPECT_EQ(momentOfValue(units, std::int64_t{-2}), -63'113'851'949'357); // and 0.2
    EXPECT_EQ(momentOfValue(units, 2.5, Rounding::toMicrosecond), 78'892'314'936'696);
    EXPECT_EQ(momentOfValue(units, -0.5, Rounding::toMicrosecond), -15'778'462'987'339);
}

TEST(ValueOfMoment, InvertsEveryUnit)
{
    std::mt19937_64 draw(1582);
    for (const char* text :
         {"us since 1850-01-01 12:00", "ms since 2000-01-01", "s since -4000-01-01",
          "min since 1-1-1", "hours since 9000-01-01", "days since 1970-01-01",
          "weeks since 1970-01-01", "months since 1999-01-31", "years since 2004-02-29"}) {
        const TimeUnits units = unitsOf(text);
        for (int i = 0; i < 5000; ++i) {
            const double range = units.months != 0 ? 3000 : 1e9;
            const auto value =
                static_cast<std::int64_t>(std::uniform_real_distribution<>(-range, range)(draw));
            const auto moment = momentOfValue(units, value);
            if (!moment)
                continue;
            ASSERT_EQ(valueOfMoment(units, *moment), static_cast<double>(value)) << text;
            ASSERT_EQ(wholeValueOfMoment(units, *moment), value) << text;
        }
    }
}

TEST(ValueOfMoment, IsTheNearestDouble)
{
    const struct {
        const char* units;
        Moment moment;
        double value;
    } rows[] = {
        {"days since 1970-01-01", 1, 1 / 86'400'000'000.0},
        {"hours since 1970-01-01", -1, -1 / 3'600'000'000.0},
        {"s since 1970-01-01", 1'000'001, 1.000001},
        {"s since 1970-01-01", 9'007'199'254'740'993, 9'007'199'254.740993},
        {"s since 1970-01-01", -9'007'199'254'740'993, -9'007'199'254.740993},
        {"s since 1970-01-01", largest, 9'223'372'036'854.775807},
        {"us since 1970-01-01", 9'007'199'254'740'993, 9'007'199'254'740'992.0},
        {"us since 1970-01-01", 9'007'199'254'740'995, 9'007'199'254'740'996.0},
        {"us since 1970-01-01", -9'007'199'254'740'993, -9'007'199'254'740'992.0},
        {"ms since 1970-01-01", largest, 9'223'372'036'854'775.807},
        {"ms since 1970-01-01", 2'629'914'755'609'497'373, 2'629'914'755'609'497.5}, // nearly a tie
        {"ms since 1970-01-01", -4'057'713'625'062'882'681, -4'057'713'625'062'882.5},
        {"weeks since 1970-01-01", lowest + 1, -15'250'284.452471521},
        {"ns since 1970-01-01", 3, 3000},
    };
    for (const auto& row : rows)
        EXPECT_EQ(valueOfMoment(unitsOf(row.units), row.moment), row.value) << row.units;
}

TEST(ValueOfMoment, CountsFractionsOfAStepOfTheCalendar)
{
    const struct {
        const char* units;
        const char* date;
        double value;
    } rows[] = {
        {"months since 2001-01-31", "2001-02-14", 0.5},
        {"months since 2001-01-31", "2000-12-31", -1},
        {"months since 2001-01-31", "2001-01-30", -1 + 30.0 / 31},
        {"months since 2001-01-31", "2001-03-01", 1 + 1.0 / 31},
        {"months since 2001-01-01", "2000-12-16 12:00", -0.5},
        {"years since 2000-07-02", "2000-01-01", -183.0 / 366},
        {"years since 2000-07-02", "2001-07-01", 364.0 / 365},
    };
    for (const auto& row : rows) {
        const Moment moment = parsePeriod(row.date, Calendar::standard)->begin;
        EXPECT_EQ(valueOfMoment(unitsOf(row.units), moment), row.value) << row.date;
        EXPECT_EQ(momentOfValue(unitsOf(row.units), row.value, Rounding::toMicrosecond), moment);
    }
}

TEST(ValueOfMoment, RefusesWhatIsOutOfRange)
{
    EXPECT_FALSE(valueOfMoment(unitsOf("us since 1969-12-31"), largest));
    EXPECT_FALSE(valueOfMoment(unitsOf("us since 1970-01-02"), lowest + 1));
    EXPECT_FALSE(valueOfMoment(unitsOf("ns since 1970-01-01"), largest / 999));
    EXPECT_FALSE(valueOfMoment(unitsOf("months since 1970-01-31"), largest));
}

TEST(WholeValueOfMoment, RefusesFractions)
{
    const TimeUnits hours = unitsOf("hours since 1970-01-01");
    EXPECT_EQ(wholeValueOfMoment(hours, -2 * microsecondsPerHour), -2);
    EXPECT_FALSE(wholeValueOfMoment(hours, 2 * microsecondsPerHour + 1));
    EXPECT_FALSE(wholeValueOfMoment(hours, 2 * microsecondsPerHour - 1));
    const TimeUnits months = unitsOf("months since 1970-01-31");
    EXPECT_EQ(wholeValueOfMoment(months, 58 * microsecondsPerDay), 1);
    EXPECT_FALSE(wholeValueOfMoment(months, 57 * microsecondsPerDay));
}

} // namespace
} // namespace Ovard::gridio::cf
