// SPDX-License-Identifier: BSD-3-Clause
// Comparisons with an independent library are in tests/cf.
#include "cf/calendar.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>

namespace Ovard::gridio::cf {

static void PrintTo(Calendar calendar, std::ostream* stream) { *stream << calendarName(calendar); }

static bool operator==(const Date& a, const Date& b)
{
    return a.year == b.year && a.month == b.month && a.day == b.day;
}

static void PrintTo(const Date& date, std::ostream* stream) { *stream << dateText(date); }

namespace {

constexpr Calendar everyCalendar[] = {Calendar::standard, Calendar::prolepticGregorian,
                                      Calendar::julian,   Calendar::noLeap,
                                      Calendar::allLeap,  Calendar::day360};

TEST(ParseCalendar, KnowsEveryNameInLettersOfEitherCase)
{
    const std::pair<const char*, Calendar> names[] = {
        {"standard", Calendar::standard},
        {"gregorian", Calendar::standard},
        {"Gregorian", Calendar::standard},
        {"proleptic_gregorian", Calendar::prolepticGregorian},
        {"PROLEPTIC_GREGORIAN", Calendar::prolepticGregorian},
        {"julian", Calendar::julian},
        {"noleap", Calendar::noLeap},
        {"NoLeap", Calendar::noLeap},
        {"365_day", Calendar::noLeap},
        {"all_leap", Calendar::allLeap},
        {"366_DAY", Calendar::allLeap},
        {"360_day", Calendar::day360},
        {" 360_day ", Calendar::day360}};
    for (const auto& [name, calendar] : names) {
        const auto parsed = parseCalendar(name);
        ASSERT_TRUE(parsed) << name << ": " << parsed.reason();
        EXPECT_EQ(*parsed, calendar) << name;
    }
    EXPECT_EQ(*parseCalendar(std::string("noleap\0\0", 8)), Calendar::noLeap);
}

TEST(ParseCalendar, RefusesOthersWithAReason)
{
    EXPECT_EQ(parseCalendar("lunar").reason(),
              "calendar \"lunar\" is not one of standard, proleptic_gregorian, julian, noleap, "
              "all_leap and 360_day");
    EXPECT_EQ(parseCalendar("none").reason(), "calendar \"none\" has no dates");
    EXPECT_EQ(parseCalendar("TAI").reason(),
              "calendar \"tai\", which counts leap seconds, is not supported");
    for (const char* name : {"", " ", "standar", "standardx", "no leap"})
        EXPECT_FALSE(parseCalendar(name)) << name;
}

TEST(CalendarName, IsTheOneThatCfPrefersAndReadsBack)
{
    EXPECT_EQ(calendarName(Calendar::standard), "standard");
    EXPECT_EQ(calendarName(Calendar::noLeap), "noleap");
    for (const Calendar calendar : everyCalendar)
        EXPECT_EQ(*parseCalendar(calendarName(calendar)), calendar);
}

TEST(DayNumber, IsThatOfKnownDays)
{
    const struct {
        Calendar calendar;
        Date date;
        std::int64_t day;
    } days[] = {
        {Calendar::standard, {1970, 1, 1}, 0},
        {Calendar::standard, {2000, 1, 1}, 10957},
        {Calendar::standard, {1582, 10, 15}, -141427},
        {Calendar::standard, {1582, 10, 4}, -141428},
        {Calendar::standard, {-4712, 1, 1}, -2440588}, // Julian day number 0
        {Calendar::prolepticGregorian, {1582, 10, 15}, -141427},
        {Calendar::prolepticGregorian, {1582, 10, 14}, -141428},
        {Calendar::prolepticGregorian, {0, 1, 1}, -719528},
        {Calendar::prolepticGregorian, {-4713, 11, 24}, -2440588},
        {Calendar::julian, {1969, 12, 19}, 0},
        {Calendar::julian, {1582, 10, 4}, -141428},
        {Calendar::julian, {1582, 10, 5}, -141427},
        {Calendar::julian, {-4712, 1, 1}, -2440588},
        {Calendar::noLeap, {1970, 1, 1}, 0},
        {Calendar::noLeap, {2000, 3, 1}, 30 * 365 + 59},
        {Calendar::allLeap, {1970, 1, 1}, 0},
        {Calendar::allLeap, {1971, 3, 1}, 366 + 60},
        {Calendar::day360, {1970, 1, 1}, 0},
        {Calendar::day360, {1969, 2, 30}, -301},
    };
    for (const auto& row : days) {
        EXPECT_EQ(dayNumber(row.calendar, row.date), row.day) << dateText(row.date);
        EXPECT_EQ(dateOfDay(row.calendar, row.day), row.date) << row.day;
    }
}

// Every day of more than two Gregorian cycles, year 0 and the gap of 1582 among them.
TEST(DateOfDay, GoesThroughTheDatesThatExistOneByOne)
{
    for (const Calendar calendar : everyCalendar) {
        Date last = dateOfDay(calendar, -800'000);
        for (std::int64_t day = -799'999; day < 100'000; ++day) {
            const Date date = dateOfDay(calendar, day);
            ASSERT_TRUE(dateExists(calendar, date)) << dateText(date);
            ASSERT_EQ(dayNumber(calendar, date), day) << dateText(date);
            Date next = last;
            do {
                ++next.day;
                if (next.day > 31)
                    next = next.month < 12 ? Date{next.year, next.month + 1, 1}
                                           : Date{next.year + 1, 1, 1};
            } while (!dateExists(calendar, next));
            ASSERT_EQ(date, next);
            last = date;
        }
    }
}

TEST(DateOfDay, HoldsForTheLargestYears)
{
    for (const Calendar calendar : everyCalendar)
        for (const std::int64_t year : {-largestYear, largestYear})
            for (const Date date : {Date{year, 1, 1}, Date{year, 12, 30}})
                EXPECT_EQ(dateOfDay(calendar, dayNumber(calendar, date)), date);
}

TEST(DateExists, KnowsTheEndsOfFebruaryAndTheGapOf1582)
{
    const struct {
        Date date;
        const char* exists; // y or n in the order of everyCalendar
    } dates[] = {
        {{2013, 2, 28}, "yyyyyy"},  {{2013, 2, 29}, "nnnnyy"},  {{2012, 2, 29}, "yyynyy"},
        {{1900, 2, 29}, "nnynyy"},  {{1500, 2, 29}, "ynynyy"},  {{1600, 2, 29}, "yyynyy"},
        {{0, 2, 29}, "yyynyy"},     {{-4, 2, 29}, "yyynyy"},    {{-100, 2, 29}, "ynynyy"},
        {{2013, 2, 30}, "nnnnny"},  {{2013, 1, 31}, "yyyyyn"},  {{1582, 10, 4}, "yyyyyy"},
        {{1582, 10, 5}, "nyyyyy"},  {{1582, 10, 14}, "nyyyyy"}, {{1582, 10, 15}, "yyyyyy"},
        {{1581, 10, 10}, "yyyyyy"}, {{1582, 11, 10}, "yyyyyy"}, {{2013, 0, 1}, "nnnnnn"},
        {{2013, 13, 1}, "nnnnnn"},  {{2013, 1, 0}, "nnnnnn"},   {{2013, 1, -1}, "nnnnnn"},
        {{2013, 1, 32}, "nnnnnn"},  {{2013, 4, 31}, "nnnnnn"},  {{largestYear + 1, 1, 1}, "nnnnnn"},
    };
    for (const auto& row : dates)
        for (std::size_t i = 0; i < std::size(everyCalendar); ++i) {
            EXPECT_EQ(dateExists(everyCalendar[i], row.date), row.exists[i] == 'y')
                << dateText(row.date) << " in " << calendarName(everyCalendar[i]);
            EXPECT_EQ(whyNoDate(everyCalendar[i], row.date).empty(), row.exists[i] == 'y');
        }
}

TEST(WhyNoDate, NamesTheDateTheCalendarAndTheRule)
{
    const struct {
        Calendar calendar;
        Date date;
        const char* reason;
    } rows[] = {
        {Calendar::noLeap,
         {2013, 2, 29},
         "2013-02-29 does not exist in calendar noleap; February has 28 days"},
        {Calendar::allLeap,
         {2013, 2, 30},
         "2013-02-30 does not exist in calendar all_leap; February has 29 days"},
        {Calendar::standard,
         {2013, 2, 29},
         "2013-02-29 does not exist in calendar standard; February 2013 has 28 days"},
        {Calendar::julian,
         {-5, 2, 29},
         "-0005-02-29 does not exist in calendar julian; February -0005 has 28 days"},
        {Calendar::prolepticGregorian,
         {2013, 4, 31},
         "2013-04-31 does not exist in calendar proleptic_gregorian; April has 30 days"},
        {Calendar::day360,
         {2013, 1, 31},
         "2013-01-31 does not exist in calendar 360_day; every month has 30 days"},
        {Calendar::standard,
         {2013, 5, 0},
         "2013-05-00 does not exist in calendar standard; days are counted from 1"},
        {Calendar::standard, {2013, 13, 1}, "2013-13-01 does not exist; months are 1 to 12"},
        {Calendar::standard,
         {1582, 10, 10},
         "1582-10-10 does not exist in calendar standard; 1582-10-04 is followed by 1582-10-15"},
        {Calendar::standard,
         {2'000'000'000'000'000, 1, 1},
         "year 2000000000000000 is out of range"},
        {Calendar::standard, {2013, 5, 1}, ""},
    };
    for (const auto& row : rows)
        EXPECT_EQ(whyNoDate(row.calendar, row.date), row.reason);
}

TEST(MonthLength, CountsTheDaysThatExist)
{
    for (const Calendar calendar : everyCalendar)
        for (const std::int64_t year : {-4, 0, 1500, 1582, 1900, 2000, 2013})
            for (int month = 1; month <= 12; ++month) {
                int count = 0;
                int last = 0;
                for (int day = 1; day <= 31; ++day)
                    if (dateExists(calendar, {year, month, day})) {
                        ++count;
                        last = day;
                    }
                EXPECT_EQ(monthLength(calendar, year, month), count)
                    << calendarName(calendar) << ' ' << year << '-' << month;
                EXPECT_EQ(lastDayOfMonth(calendar, year, month), last);
            }
    EXPECT_EQ(monthLength(Calendar::standard, 1582, 10), 21);
}

TEST(YearLength, FollowsLeapYearsAndTheGapOf1582)
{
    const struct {
        std::int64_t year;
        int lengths[6];
    } years[] = {{2013, {365, 365, 365, 365, 366, 360}}, {2012, {366, 366, 366, 365, 366, 360}},
                 {1900, {365, 365, 366, 365, 366, 360}}, {1582, {355, 365, 365, 365, 366, 360}},
                 {1500, {366, 365, 366, 365, 366, 360}}, {0, {366, 366, 366, 365, 366, 360}}};
    for (const auto& row : years)
        for (std::size_t i = 0; i < std::size(everyCalendar); ++i) {
            EXPECT_EQ(yearLength(everyCalendar[i], row.year), row.lengths[i])
                << row.year << ' ' << calendarName(everyCalendar[i]);
            EXPECT_EQ(isLeapYear(everyCalendar[i], row.year), row.lengths[i] == 366);
        }
}

TEST(DayOfYear, CountsTheDaysThatExist)
{
    EXPECT_EQ(dayOfYear(Calendar::standard, {2013, 1, 1}), 1);
    EXPECT_EQ(dayOfYear(Calendar::standard, {2012, 12, 31}), 366);
    EXPECT_EQ(dayOfYear(Calendar::standard, {1582, 10, 4}), 277);
    EXPECT_EQ(dayOfYear(Calendar::standard, {1582, 10, 15}), 278);
    EXPECT_EQ(dayOfYear(Calendar::day360, {2013, 12, 30}), 360);
    EXPECT_EQ(dayOfYear(Calendar::noLeap, {2012, 3, 1}), 60);
    EXPECT_EQ(dayOfYear(Calendar::julian, {-1, 12, 31}), 365);
}

TEST(SeasonOfMonth, PutsDecemberBeforeJanuary)
{
    std::string names;
    for (int month = 1; month <= 12; ++month)
        names.append(seasonName(seasonOfMonth(month))).append(" ");
    EXPECT_EQ(names, "DJF DJF MAM MAM MAM JJA JJA JJA SON SON SON DJF ");
}

TEST(DateText, WritesFourDigitsOfTheYearAndMoreWhereItNeedsThem)
{
    EXPECT_EQ(dateText({2013, 5, 1}), "2013-05-01");
    EXPECT_EQ(dateText({0, 12, 31}), "0000-12-31");
    EXPECT_EQ(dateText({-44, 3, 15}), "-0044-03-15");
    EXPECT_EQ(dateText({123456, 1, 1}), "123456-01-01");
}

} // namespace
} // namespace Ovard::gridio::cf
