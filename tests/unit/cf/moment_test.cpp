// SPDX-License-Identifier: BSD-3-Clause
// Comparisons with the interpreter's datenum are in tests/cf.
#include "cf/moment.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <utility>

namespace Ovard::gridio::cf {
namespace {

constexpr Moment lastMoment = std::numeric_limits<Moment>::max();
constexpr Moment firstMoment = notATime + 1;

Moment at(Calendar calendar, const Parts& parts)
{
    const auto moment = momentOfParts(calendar, parts);
    EXPECT_TRUE(moment) << (moment ? "" : moment.reason());
    return moment ? *moment : notATime;
}

TEST(MomentOfParts, CountsMicroseconds)
{
    EXPECT_EQ(at(Calendar::standard, {{1970, 1, 1}, 0, 0, 0, 0}), 0);
    EXPECT_EQ(at(Calendar::standard, {{1970, 1, 2}, 3, 4, 5, 6}),
              86'400'000'000 + (3 * 3600 + 4 * 60 + 5) * 1'000'000LL + 6);
    EXPECT_EQ(at(Calendar::day360, {{1969, 12, 30}, 23, 59, 59, 999'999}), -1);
}

TEST(MomentOfParts, RefusesPartsOutOfTheirRange)
{
    const std::pair<Parts, const char*> rows[] = {
        {{{2013, 5, 1}, 24, 0, 0, 0}, "hour 24 does not exist; it is 0 to 23"},
        {{{2013, 5, 1}, 0, 60, 0, 0}, "minute 60 does not exist; it is 0 to 59"},
        {{{2013, 5, 1}, 0, 0, -1, 0}, "second -1 does not exist; it is 0 to 59"},
        {{{2013, 5, 1}, 0, 0, 0, 1'000'000},
         "microsecond 1000000 does not exist; it is 0 to 999999"},
        {{{2013, 5, 32}, 0, 0, 0, 0},
         "2013-05-32 does not exist in calendar standard; May has 31 days"},
        {{{300'000, 1, 1}, 0, 0, 0, 0}, "a time must lie within 292,000 years of 1970"},
        {{{-largestYear, 1, 1}, 0, 0, 0, 0}, "a time must lie within 292,000 years of 1970"},
    };
    for (const auto& [parts, reason] : rows)
        EXPECT_EQ(momentOfParts(Calendar::standard, parts).reason(), reason);
}

TEST(PartsOfMoment, TurnBackIntoTheMomentUpToTheEndsOfTheRange)
{
    for (const Calendar calendar : {Calendar::standard, Calendar::prolepticGregorian,
                                    Calendar::julian, Calendar::noLeap, Calendar::day360})
        for (const Moment moment : {firstMoment, firstMoment + 1, Moment{-86'400'000'001},
                                    Moment{-1}, Moment{0}, lastMoment - 1, lastMoment})
            EXPECT_EQ(at(calendar, partsOfMoment(calendar, moment)), moment);
}

TEST(MomentOfDay, RefusesWhatIsOutOfRange)
{
    EXPECT_EQ(momentOfDay(106'751'991), 106'751'991 * microsecondsPerDay);
    EXPECT_FALSE(momentOfDay(106'751'992));
    EXPECT_EQ(momentOfDay(-106'751'992, lastMoment % microsecondsPerDay), std::nullopt);
    EXPECT_TRUE(momentOfDay(-106'751'992, microsecondsPerDay - 1));
    EXPECT_FALSE(momentOfDay(-106'751'992));
    EXPECT_FALSE(momentOfDay(0, notATime));
    EXPECT_FALSE(momentOfDay(std::numeric_limits<std::int64_t>::max(), lastMoment));
    EXPECT_FALSE(momentOfDay(std::numeric_limits<std::int64_t>::min(), firstMoment));
}

TEST(RoundestMoment, IsTheCoarsestWithinTheTolerance)
{
    constexpr Moment hour = 1'000'000 * microsecondsPerHour;
    const struct {
        Moment moment;
        double tolerance;
        Moment roundest;
    } rows[] = {
        {hour + 1, 0.4, hour + 1},
        {hour + 1, 0.5, hour},
        {hour - 1, 0.5, hour},
        {hour + 2, 1, hour + 2},
        {hour + 2, 1.5, hour},
        {hour + 1003, 5, hour + 1000},
        {hour + 59'999'990, 9, hour + 59'999'990},
        {hour + 59'999'990, 10, hour + 60'000'000},
        {hour + 29 * microsecondsPerMinute, 337e6, hour + 29 * microsecondsPerMinute},
        {-microsecondsPerDay - 1, 1, -microsecondsPerDay},
        {-1, 1, 0},
        {lastMoment - 1, 1e30, lastMoment - 1}, // a whole day might be out of range
        {firstMoment, 1e30, firstMoment},
        {microsecondsPerDay + 5, 1e30, microsecondsPerDay},
    };
    for (const auto& row : rows)
        EXPECT_EQ(roundestMoment(row.moment, row.tolerance), row.roundest)
            << row.moment << " within " << row.tolerance;
}

TEST(DatenumOfMoment, IsTheProlepticDayNumberFromOneInYearZero)
{
    const std::pair<Parts, double> rows[] = {
        {{{0, 1, 1}, 0, 0, 0, 0}, 1},
        {{{1970, 1, 1}, 0, 0, 0, 0}, 719529},
        {{{2013, 5, 1}, 18, 0, 0, 0}, 735355.75},
        {{{-1, 12, 31}, 12, 0, 0, 0}, 0.5},
    };
    for (const auto& [parts, datenum] : rows)
        EXPECT_EQ(datenumOfMoment(at(Calendar::prolepticGregorian, parts)), datenum);
}

TEST(HasDatenum, HoldsWhereDatesComeBackAsTheyAre)
{
    const Moment reform = firstGregorianDay * microsecondsPerDay;
    EXPECT_TRUE(hasDatenum(Calendar::standard, reform));
    EXPECT_FALSE(hasDatenum(Calendar::standard, reform - 1));
    EXPECT_TRUE(hasDatenum(Calendar::prolepticGregorian, reform - 1));
    for (const Calendar calendar :
         {Calendar::julian, Calendar::noLeap, Calendar::allLeap, Calendar::day360}) {
        EXPECT_FALSE(hasDatenum(calendar, 0));
        EXPECT_EQ(noDatenumReason(calendar),
                  "dates of calendar " + std::string(calendarName(calendar)) + " have no datenum");
    }
    EXPECT_EQ(noDatenumReason(Calendar::standard),
              "dates before 1582-10-15 of calendar standard have no datenum");
}

TEST(MomentOfDatenum, IsExactToTheMillisecondInAllYearsOfFourDigits)
{
    const Moment first = at(Calendar::prolepticGregorian, {{-9999, 1, 1}, 0, 0, 0, 0});
    for (int i = 0; i < 200'000; ++i) {
        const Moment moment = first + i * (20'000 * microsecondsPerDay / 550) + i * 1'111'000LL;
        const Moment whole = moment - moment % microsecondsPerMillisecond;
        ASSERT_EQ(momentOfDatenum(Calendar::prolepticGregorian, datenumOfMoment(whole)), whole);
    }
}

TEST(MomentOfDatenum, ForgivesTheInterpretersLastPlace)
{
    const Moment moment = at(Calendar::standard, {{2013, 5, 1}, 18, 20, 30, 0});
    const double datenum = datenumOfMoment(moment);
    EXPECT_EQ(momentOfDatenum(Calendar::standard, datenum), moment);
    EXPECT_EQ(momentOfDatenum(Calendar::standard, std::nextafter(datenum, 0)), moment);
    EXPECT_EQ(momentOfDatenum(Calendar::standard, std::nextafter(datenum, 1e9)), moment);
}

TEST(MomentOfDatenum, TellsNoTimeFromNoMoment)
{
    const double infinity = std::numeric_limits<double>::infinity();
    for (const double datenum : {std::nan(""), infinity, -infinity})
        EXPECT_EQ(momentOfDatenum(Calendar::standard, datenum), notATime);
    for (const double datenum : {1e9, -1e9, 1e300, 1.9e8, -1.9e8, 1.08e8, -1.08e8})
        EXPECT_EQ(momentOfDatenum(Calendar::prolepticGregorian, datenum), std::nullopt) << datenum;
    EXPECT_EQ(momentOfDatenum(Calendar::standard, 578101.9), std::nullopt);
    EXPECT_EQ(momentOfDatenum(Calendar::standard, 578102), firstGregorianDay * microsecondsPerDay);
    EXPECT_EQ(momentOfDatenum(Calendar::day360, 735355), std::nullopt);
}

} // namespace
} // namespace Ovard::gridio::cf
