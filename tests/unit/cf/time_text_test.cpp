// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_text.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace Ovard::gridio::cf {
namespace {

constexpr Precision everyPrecision[] = {
    Precision::year,   Precision::month,  Precision::day,         Precision::hour,
    Precision::minute, Precision::second, Precision::millisecond, Precision::microsecond};

TEST(MomentText, CutsOffWhatIsSmallerThanItsPrecision)
{
    const Moment moment = *momentOfParts(Calendar::noLeap, {{2013, 12, 31}, 23, 59, 58, 987'654});
    const char* const texts[] = {"2013",
                                 "2013-12",
                                 "2013-12-31",
                                 "2013-12-31 23",
                                 "2013-12-31 23:59",
                                 "2013-12-31 23:59:58",
                                 "2013-12-31 23:59:58.987",
                                 "2013-12-31 23:59:58.987654"};
    for (std::size_t i = 0; i < std::size(texts); ++i) {
        EXPECT_EQ(momentText(Calendar::noLeap, moment, everyPrecision[i]), texts[i]);
        EXPECT_EQ(momentTextWidth(Calendar::noLeap, &moment, 1, everyPrecision[i]),
                  std::string(texts[i]).size());
    }
}

TEST(MomentText, WritesAnyYear)
{
    const std::pair<Date, const char*> dates[] = {{{0, 1, 1}, "0000-01-01"},
                                                  {{-44, 3, 15}, "-0044-03-15"},
                                                  {{9999, 12, 31}, "9999-12-31"},
                                                  {{10'000, 1, 1}, "10000-01-01"},
                                                  {{-12'345, 1, 1}, "-12345-01-01"}};
    for (const auto& [date, text] : dates) {
        const Moment moment = *momentOfParts(Calendar::julian, {date, 0, 0, 0, 0});
        EXPECT_EQ(momentText(Calendar::julian, moment, Precision::day), text);
    }
    EXPECT_EQ(momentText(Calendar::prolepticGregorian, std::numeric_limits<Moment>::max(),
                         Precision::microsecond),
              "294247-01-10 04:00:54.775807");
    EXPECT_EQ(momentText(Calendar::prolepticGregorian, notATime + 1, Precision::microsecond),
              "-290308-12-21 19:59:05.224193");
    EXPECT_EQ(momentText(Calendar::standard, notATime, Precision::microsecond), "NaT");
    EXPECT_EQ(momentText(Calendar::standard, notATime, Precision::year), "NaT");
}

TEST(ExactPrecision, IsThatOfTheMomentThatNeedsTheLongestForm)
{
    const Moment hour = microsecondsPerHour;
    const std::pair<std::vector<Moment>, Precision> columns[] = {
        {{}, Precision::day},
        {{notATime, notATime}, Precision::day},
        {{0, -microsecondsPerDay, notATime}, Precision::day},
        {{0, 18 * hour}, Precision::minute},
        {{-60'000'000, 0}, Precision::minute},
        {{18 * hour, 30 * microsecondsPerSecond, 0}, Precision::second},
        {{0, -500'000}, Precision::millisecond},
        {{1, 0, 18 * hour}, Precision::microsecond},
    };
    for (const auto& [moments, precision] : columns)
        EXPECT_EQ(exactPrecision(moments.data(), moments.size()), precision);
}

TEST(MomentTextWidth, IsThatOfTheLongestYear)
{
    const auto yearOf = [](std::int64_t year) {
        return *momentOfParts(Calendar::day360, {{year, 7, 1}, 0, 0, 0, 0});
    };
    const std::pair<std::vector<Moment>, std::size_t> columns[] = {
        {{}, 3},
        {{notATime}, 3},
        {{yearOf(2013), notATime, yearOf(2014)}, 10},
        {{yearOf(2013), yearOf(-1), yearOf(2014)}, 11},
        {{yearOf(2013), yearOf(10'000), yearOf(-1)}, 11},
        {{yearOf(-10'000), yearOf(10'000)}, 12},
    };
    for (const auto& [moments, width] : columns)
        EXPECT_EQ(momentTextWidth(Calendar::day360, moments.data(), moments.size(), Precision::day),
                  width);
}

std::string periodOf(const std::string& text, Calendar calendar = Calendar::standard)
{
    const auto period = parsePeriod(text, calendar);
    if (!period)
        return period.reason();
    const Moment ends[] = {period->begin, period->end};
    const Precision precision = exactPrecision(ends, 2);
    return momentText(calendar, ends[0], precision) + " to " +
           momentText(calendar, ends[1], precision);
}

TEST(ParsePeriod, TakesTheWholeOfWhatIsNamed)
{
    const std::pair<const char*, const char*> texts[] = {
        {"2013", "2013-01-01 to 2014-01-01"},
        {"2013-05", "2013-05-01 to 2013-06-01"},
        {"2013-12", "2013-12-01 to 2014-01-01"},
        {"2013-05-01", "2013-05-01 to 2013-05-02"},
        {"2012-02-29", "2012-02-29 to 2012-03-01"},
        {"2013-12-31", "2013-12-31 to 2014-01-01"},
        {"1582-10-04", "1582-10-04 to 1582-10-15"},
        {"1582-10", "1582-10-01 to 1582-11-01"},
        {"2013-05-01 18", "2013-05-01 18:00 to 2013-05-01 19:00"},
        {"2013-05-01T18", "2013-05-01 18:00 to 2013-05-01 19:00"},
        {"2013-05-01 23:59", "2013-05-01 23:59 to 2013-05-02 00:00"},
        {"2013-05-01 18:00:30Z", "2013-05-01 18:00:30 to 2013-05-01 18:00:31"},
        {"2013-05-01T18:00:30.5", "2013-05-01 18:00:30.500 to 2013-05-01 18:00:30.600"},
        {"2013-05-01T18:00:30.", "2013-05-01 18:00:30 to 2013-05-01 18:00:31"},
        {"2013-05-01T18:00:30.123456", "2013-05-01 18:00:30.123456 to 2013-05-01 18:00:30.123457"},
        {"2013-05-01T18:00:30.1234567", "2013-05-01 18:00:30.123457 to 2013-05-01 18:00:30.123458"},
        {"2013-05-01 18:00 +01:00", "2013-05-01 17:00 to 2013-05-01 17:01"},
        {"-1", "-0001-01-01 to 0000-01-01"},
        {"20130501T1800", "2013-05-01 18:00 to 2013-05-01 18:01"},
    };
    for (const auto& [text, period] : texts)
        EXPECT_EQ(periodOf(text), period) << text;
}

TEST(ParsePeriod, FollowsTheCalendar)
{
    EXPECT_EQ(periodOf("2013-02-30", Calendar::day360), "2013-02-30 to 2013-03-01");
    EXPECT_EQ(periodOf("2013-02", Calendar::day360), "2013-02-01 to 2013-03-01");
    EXPECT_EQ(periodOf("2013-02-29", Calendar::allLeap), "2013-02-29 to 2013-03-01");
    EXPECT_EQ(periodOf("1582-10-04", Calendar::julian), "1582-10-04 to 1582-10-05");
    const auto february = parsePeriod("2012-02", Calendar::noLeap);
    ASSERT_TRUE(february);
    EXPECT_EQ(february->end - february->begin, 28 * microsecondsPerDay);
}

TEST(ParsePeriod, TellsThePrecisionOfTheText)
{
    const char* const texts[] = {"2013",
                                 "2013-05",
                                 "2013-05-01",
                                 "2013-05-01 18",
                                 "2013-05-01 18:00",
                                 "2013-05-01 18:00:30",
                                 "2013-05-01 18:00:30.125",
                                 "2013-05-01 18:00:30.1250"};
    for (std::size_t i = 0; i < std::size(texts); ++i)
        EXPECT_EQ(parsePeriod(texts[i], Calendar::standard)->precision, everyPrecision[i]);
}

TEST(ParsePeriod, RefusesWithAReason)
{
    const struct {
        const char* text;
        Calendar calendar;
        const char* reason;
    } rows[] = {
        {"2013-02-29", Calendar::noLeap,
         "2013-02-29 does not exist in calendar noleap; February has 28 days"},
        {"2013-02-29", Calendar::standard,
         "2013-02-29 does not exist in calendar standard; February 2013 has 28 days"},
        {"1582-10-10", Calendar::standard,
         "1582-10-10 does not exist in calendar standard; 1582-10-04 is followed by 1582-10-15"},
        {"2013-13", Calendar::standard, "2013-13-01 does not exist; months are 1 to 12"},
        {"2013-05-01 24:00", Calendar::standard, "hour 24 does not exist; it is 0 to 23"},
        {"May 2013", Calendar::standard, "\"May 2013\" does not begin with a year"},
        {"", Calendar::standard, "the date is empty"},
        {"2013-05-01 -6", Calendar::standard, "\"2013-05-01 -6\" has a time zone but no time"},
        {"294247-02", Calendar::standard, "a time must lie within 292,000 years of 1970"},
        {"294247-01-10 04:00:54.775807", Calendar::standard,
         "a time must lie within 292,000 years of 1970"},
        {"-300000-01", Calendar::standard, "a time must lie within 292,000 years of 1970"},
        {"1000000000000000", Calendar::day360, "\"1000000000000000\" is not clear without hyphens"},
        {"1000000000000000-12", Calendar::day360, "a time must lie within 292,000 years of 1970"},
        {"9999999999999999-12", Calendar::day360, "year 9999999999999999 is out of range"},
    };
    for (const auto& row : rows)
        EXPECT_EQ(periodOf(row.text, row.calendar), row.reason);
}

} // namespace
} // namespace Ovard::gridio::cf
