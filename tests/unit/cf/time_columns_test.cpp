// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_columns.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <vector>

namespace Ovard::gridio::cf {
namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();

TimeUnits unitsOf(const char* text, Calendar calendar = Calendar::standard)
{
    const auto units = parseTimeUnits(text, calendar);
    EXPECT_TRUE(units);
    return *units;
}

// NaN equals NaN.
void expectEqual(const std::vector<double>& a, const std::vector<double>& b)
{
    ASSERT_EQ(a.size(), b.size());
    for (std::size_t i = 0; i < a.size(); ++i)
        EXPECT_TRUE(a[i] == b[i] || (std::isnan(a[i]) && std::isnan(b[i])))
            << i << ": " << a[i] << ", " << b[i];
}

const std::vector<double> someValues = {0, nan, 1e30, 18, -0.5, -1e30};
const std::vector<std::int64_t> someWholeValues = {0, std::numeric_limits<std::int64_t>::max(), 18};

TEST(ValuesToMoments, CountsWhatIsOutOfRangeButNotWhatIsNoTime)
{
    const TimeUnits hours = unitsOf("hours since 1970-01-01");
    std::vector<Moment> moments(6);
    Misses misses =
        valuesToMoments(hours, someValues.data(), 6, Rounding::withinDouble, moments.data());
    EXPECT_EQ(moments, (std::vector<Moment>{0, notATime, notATime, 18 * microsecondsPerHour,
                                            -microsecondsPerHour / 2, notATime}));
    EXPECT_EQ(misses.count, 2U);
    EXPECT_EQ(misses.first, 2U);

    misses = valuesToMoments(hours, someWholeValues.data(), 3, moments.data());
    EXPECT_EQ(moments[1], notATime);
    EXPECT_EQ(moments[2], 18 * microsecondsPerHour);
    EXPECT_EQ(misses.count, 1U);
    EXPECT_EQ(misses.first, 1U);
}

TEST(ValuesToDatenum, IsNanWhereThereIsNone)
{
    const TimeUnits hours = unitsOf("hours since 1970-01-01");
    std::vector<double> datenum(6);
    const Misses misses =
        valuesToDatenum(hours, someValues.data(), 6, Rounding::withinDouble, datenum.data());
    expectEqual(datenum, {719529, nan, nan, 719529.75, 719529 - 0.5 / 24, nan});
    EXPECT_EQ(misses.count, 2U);

    datenum.resize(3);
    EXPECT_EQ(valuesToDatenum(hours, someWholeValues.data(), 3, datenum.data()).first, 1U);
    expectEqual(datenum, {719529, nan, 719529.75});
}

TEST(ValuesToDatenum, MissesDatesThatTheInterpreterWouldShowAsOthers)
{
    const double values[] = {0, 1};
    double datenum[2];
    Misses misses = valuesToDatenum(unitsOf("days since 1582-10-04"), values, 2,
                                    Rounding::withinDouble, datenum);
    expectEqual({datenum, datenum + 2}, {nan, 578102});
    EXPECT_EQ(misses.count, 1U);
    EXPECT_EQ(misses.first, 0U);
    misses = valuesToDatenum(unitsOf("days since 2000-01-01", Calendar::noLeap), values, 2,
                             Rounding::withinDouble, datenum);
    expectEqual({datenum, datenum + 2}, {nan, nan});
    EXPECT_EQ(misses.count, 2U);
}

TEST(ValuesToParts, FillsSixColumns)
{
    const TimeUnits days = unitsOf("days since 2013-02-30", Calendar::day360);
    const double values[] = {0, nan, 1.75 + 30.125 / 86'400, -29};
    std::vector<double> parts(24);
    EXPECT_EQ(valuesToParts(days, values, 4, Rounding::withinDouble, parts.data()).count, 0U);
    const std::vector<double> expected = {2013, nan, 2013, 2013, 2, nan, 3, 2, 30, nan, 1,      1,
                                          0,    nan, 18,   0,    0, nan, 0, 0, 0,  nan, 30.125, 0};
    expectEqual(parts, expected);

    std::vector<Moment> moments(4);
    ASSERT_EQ(valuesToMoments(days, values, 4, Rounding::withinDouble, moments.data()).count, 0U);
    std::vector<double> again(24);
    momentsToParts(Calendar::day360, moments.data(), 4, again.data());
    expectEqual(again, expected);

    const std::int64_t whole[] = {1};
    EXPECT_EQ(valuesToParts(days, whole, 1, parts.data()).count, 0U);
    parts.resize(6);
    expectEqual(parts, {2013, 3, 1, 0, 0, 0});
}

// More elements than a block, the misses in a later one.
TEST(ValuesToParts, GivesEachElementWhatItGivesAlone)
{
    const TimeUnits hours = unitsOf("hours since 1582-10-01", Calendar::standard);
    constexpr std::size_t count = 3000;
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i)
        values[i] = static_cast<double>(i) / 3 - 500;
    values[1500] = 1e30;
    values[2900] = -1e30;

    std::vector<double> parts(6 * count);
    std::vector<double> datenum(count);
    const Misses misses =
        valuesToParts(hours, values.data(), count, Rounding::withinDouble, parts.data());
    EXPECT_EQ(misses.count, 2U);
    EXPECT_EQ(misses.first, 1500U);
    EXPECT_EQ(
        valuesToDatenum(hours, values.data(), count, Rounding::withinDouble, datenum.data()).first,
        0U);

    for (std::size_t i = 0; i < count; ++i) {
        const auto moment = momentOfValue(hours, values[i], Rounding::withinDouble);
        if (!moment) {
            ASSERT_TRUE(std::isnan(parts[i]) && std::isnan(parts[5 * count + i])) << i;
            continue;
        }
        const Parts alone = partsOfMoment(Calendar::standard, *moment);
        ASSERT_EQ(parts[i], alone.date.year) << i;
        ASSERT_EQ(parts[count + i], alone.date.month) << i;
        ASSERT_EQ(parts[2 * count + i], alone.date.day) << i;
        ASSERT_EQ(parts[3 * count + i], alone.hour) << i;
        ASSERT_EQ(parts[4 * count + i], alone.minute) << i;
        ASSERT_EQ(parts[5 * count + i], alone.second + alone.microsecond / 1e6) << i;
        if (hasDatenum(Calendar::standard, *moment))
            ASSERT_EQ(datenum[i], datenumOfMoment(*moment)) << i;
        else
            ASSERT_TRUE(std::isnan(datenum[i])) << i;
    }
}

TEST(MomentsToTexts, FillsABlockOfEqualWidth)
{
    const Moment moments[] = {0, notATime, -62'500'000'020 * microsecondsPerSecond};
    const Precision precision = exactPrecision(moments, 3);
    const std::size_t width = momentTextWidth(Calendar::standard, moments, 3, precision);
    std::string texts(3 * width, '?');
    momentsToTexts(Calendar::standard, moments, 3, precision, width, texts.data());
    EXPECT_EQ(texts, "1970-01-01 00:00 NaT              -0011-06-17 08:53");
}

TEST(DatenumToValues, RoundsToTheNearestValueOfTheUnits)
{
    const TimeUnits hours = unitsOf("hours since 2013-05-01");
    const double datenum[] = {735355, 735355 + 1.0 / 24, nan, 735354.75, 1e30, 735355 + 0.5 / 24};
    std::vector<double> values(6);
    Misses misses = datenumToValues(hours, datenum, 6, values.data());
    expectEqual(values, {0, 1, nan, -6, nan, 0.5});
    EXPECT_EQ(misses.count, 1U);
    EXPECT_EQ(misses.first, 4U);

    std::vector<std::int64_t> whole(6);
    misses = datenumToValues(hours, datenum, 6, -999, whole.data());
    EXPECT_EQ(whole, (std::vector<std::int64_t>{0, 1, -999, -6, -999, -999}));
    EXPECT_EQ(misses.count, 2U);
    EXPECT_EQ(misses.first, 4U);
}

TEST(DatenumToValues, FindsEveryMinuteAgain)
{
    const TimeUnits minutes = unitsOf("minutes since 1858-11-17");
    std::vector<std::int64_t> values(20'000);
    for (std::size_t i = 0; i < values.size(); ++i)
        values[i] = static_cast<std::int64_t>(i * i) - 100'000'000;
    std::vector<double> datenum(values.size());
    ASSERT_EQ(valuesToDatenum(minutes, values.data(), values.size(), datenum.data()).count, 0U);
    std::vector<std::int64_t> again(values.size());
    EXPECT_EQ(datenumToValues(minutes, datenum.data(), datenum.size(), 0, again.data()).count, 0U);
    EXPECT_EQ(again, values);
}

TEST(DatenumToMoments, MissesWhatIsOfAnotherCalendar)
{
    const double datenum[] = {nan, 578101, 578102};
    Moment moments[3];
    const Misses misses = datenumToMoments(Calendar::standard, datenum, 3, moments);
    EXPECT_EQ(misses.count, 1U);
    EXPECT_EQ(misses.first, 1U);
    EXPECT_EQ(moments[0], notATime);
    EXPECT_EQ(moments[1], notATime);
    EXPECT_EQ(moments[2], firstGregorianDay * microsecondsPerDay);
}

TEST(MomentsToValues, WritesTheMissingValueForWhatIsNoTime)
{
    const TimeUnits days = unitsOf("days since 1970-01-01");
    const Moment moments[] = {notATime, microsecondsPerDay, 1};
    std::int64_t whole[3];
    Misses misses = momentsToValues(days, moments, 3, -1, whole);
    EXPECT_EQ(std::vector<std::int64_t>(whole, whole + 3), (std::vector<std::int64_t>{-1, 1, -1}));
    EXPECT_EQ(misses.count, 1U);
    EXPECT_EQ(misses.first, 2U);
    double values[3];
    misses = momentsToValues(days, moments, 3, values);
    EXPECT_EQ(misses.count, 0U);
    expectEqual({values, values + 3}, {nan, 1, 1 / 86'400'000'000.0});
}

TEST(TimeColumns, MayBeEmpty)
{
    const TimeUnits days = unitsOf("days since 1970-01-01");
    EXPECT_EQ(valuesToDatenum(days, nullptr, 0, Rounding::withinDouble, nullptr).count, 0U);
    EXPECT_EQ(valuesToParts(days, static_cast<const std::int64_t*>(nullptr), 0, nullptr).count, 0U);
    EXPECT_EQ(datenumToValues(days, nullptr, 0, nullptr).count, 0U);
    momentsToTexts(Calendar::standard, nullptr, 0, Precision::day, 3, nullptr);
}

} // namespace
} // namespace Ovard::gridio::cf
