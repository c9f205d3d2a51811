// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_units.h"

#include "cf/time_text.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace Ovard::gridio::cf {
namespace {

// What was read, as "numerator/denominator months reference"; the denominator and the months only
// where they matter.
std::string readAs(const std::string& text, Calendar calendar = Calendar::standard,
                   LongUnits longUnits = LongUnits::refused)
{
    const auto units = parseTimeUnits(text, calendar, longUnits);
    if (!units)
        return units.reason();
    EXPECT_EQ(units->calendar, calendar);
    const std::string length =
        units->months != 0
            ? std::to_string(units->months) + " months"
            : std::to_string(units->numerator) +
                  (units->denominator == 1 ? "" : "/" + std::to_string(units->denominator));
    return length + " " +
           momentText(calendar, units->reference, exactPrecision(&units->reference, 1));
}

TEST(ParseTimeUnits, KnowsTheNamesOfUnitsOfOneLength)
{
    const std::pair<const char*, std::vector<const char*>> units[] = {
        {"1/1000", {"nanosecond", "nanoseconds", "nanosec", "nanosecs", "nsec", "nsecs", "ns"}},
        {"1", {"microsecond", "microseconds", "microsec", "microsecs", "usec", "usecs", "us"}},
        {"1000", {"millisecond", "milliseconds", "millisec", "millisecs", "msec", "msecs", "ms"}},
        {"1000000", {"second", "seconds", "sec", "secs", "s", "S", "Seconds"}},
        {"60000000", {"minute", "minutes", "min", "mins"}},
        {"3600000000", {"hour", "hours", "hr", "hrs", "h", "HOURS"}},
        {"86400000000", {"day", "days", "d", "Days"}},
        {"604800000000", {"week", "weeks"}},
    };
    for (const auto& [length, names] : units)
        for (const std::string name : names)
            EXPECT_EQ(readAs(name + " since 1900-01-01"), std::string(length) + " 1900-01-01");
}

TEST(ParseTimeUnits, TakesFiveWordsBetweenUnitAndReference)
{
    for (const char* text :
         {"days since 1900-01-01", "days after 1900-01-01", "days from 1900-01-01",
          "days ref 1900-01-01", "days @ 1900-01-01", "days@1900-01-01", "DAYS SINCE 1900-01-01",
          "  days   since\t1900-01-01  ", "days since1900-01-01"})
        EXPECT_EQ(readAs(text), "86400000000 1900-01-01") << text;
}

TEST(ParseTimeUnits, ReadsReferencesAsTheyAreFound)
{
    const std::pair<const char*, const char*> references[] = {
        {"1950-01-01 00:00:00 UTC", "1950-01-01"},
        {"2000-01-01 00:00:00.0", "2000-01-01"},
        {"1900-01-01 00:00:0.0", "1900-01-01"},
        {"1-1-1 00:00:0.0", "0001-01-01"},
        {"1970-01-01T00:00:00Z", "1970-01-01"},
        {"1900-1-1 6:30", "1900-01-01 06:30"},
        {"1900-01-01 00:00:00 +01:00", "1899-12-31 23:00"},
        {"1900-01-01 00:00:00 -6", "1900-01-01 06:00"},
        {"19700101T000000", "1970-01-01"},
        {"1970", "1970-01-01"},
        {"1970-02", "1970-02-01"},
        {"-4712-01-01 12:00", "-4712-01-01 12:00"},
        {"12345-01-01", "12345-01-01"},
        {"2000-01-01 00:00:30.125", "2000-01-01 00:00:30.125"},
    };
    for (const auto& [reference, read] : references)
        EXPECT_EQ(readAs("s since " + std::string(reference)), std::string("1000000 ") + read);
}

TEST(ParseTimeUnits, RefusesOthersWithAReason)
{
    const std::pair<const char*, const char*> texts[] = {
        {"", "\"\" does not begin with a unit of time"},
        {"K", "\"K\" does not begin with a unit of time"},
        {"fortnights since 2000-01-01",
         "\"fortnights since 2000-01-01\" does not begin with a unit of time"},
        {"3 hours since 2000-01-01",
         "\"3 hours since 2000-01-01\" does not begin with a unit of time"},
        {"m since 2000-01-01", "\"m since 2000-01-01\" does not begin with a unit of time"},
        {"days", "\"days\" has no \"since\" behind its unit"},
        {"days before 2000-01-01", "\"days before 2000-01-01\" has no \"since\" behind its unit"},
        {"day as %Y%m%d.%f", "\"day as %Y%m%d.%f\" has no \"since\" behind its unit"},
        {"days since", "\"days since\" has no reference date"},
        {"days @", "\"days @\" has no reference date"},
        {"days since launch", "the reference date \"launch\" does not begin with a year"},
        {"days since 2013-02-30",
         "\"days since 2013-02-30\" has an invalid reference date: 2013-02-30 does not exist in "
         "calendar standard; February 2013 has 28 days"},
        {"days since 0000-00-00", "\"days since 0000-00-00\" has an invalid reference date: "
                                  "0000-00-00 does not exist; months are 1 to 12"},
        {"days since 2000-01-01 25:00", "\"days since 2000-01-01 25:00\" has an invalid reference "
                                        "date: hour 25 does not exist; it is 0 to 23"},
    };
    for (const auto& [text, reason] : texts)
        EXPECT_EQ(readAs(text), reason);
    EXPECT_EQ(readAs("days since 2013-02-30", Calendar::day360), "86400000000 2013-02-30");
}

TEST(ParseTimeUnits, RefusesMonthsAndYearsUnlessAllowed)
{
    for (const std::string name : {"month", "months", "mon", "mons", "year", "years", "yr", "yrs",
                                   "common_year", "leap_years", "julian_year", "gregorian_years"})
        EXPECT_EQ(readAs(name + " since 2000-01-01"),
                  "the unit \"" + name +
                      "\" has no certain length in calendar standard; its values can be "
                      "taken as UDUNITS lengths or as steps of the calendar");
}

TEST(ParseTimeUnits, TakesMonthsAndYearsThatTheCalendarMakesEqual)
{
    EXPECT_EQ(readAs("months since 2000-01-01", Calendar::day360), "2592000000000 2000-01-01");
    EXPECT_EQ(readAs("common_years since 2000-01-01", Calendar::noLeap),
              "31536000000000 2000-01-01");
    EXPECT_NE(readAs("years since 2000-01-01", Calendar::day360).find("no certain length"),
              std::string::npos);
    EXPECT_NE(readAs("months since 2000-01-01", Calendar::noLeap).find("no certain length"),
              std::string::npos);
}

TEST(ParseTimeUnits, GivesMonthsAndYearsTheLengthsOfUdunits)
{
    const std::pair<const char*, const char*> units[] = {
        {"years", "157784629873392/5"},        // 365.242198781 days
        {"months", "13148719156116/5"},        // a twelfth
        {"common_years", "31536000000000"},    // 365 days
        {"leap_years", "31622400000000"},      // 366
        {"julian_years", "31557600000000"},    // 365.25
        {"gregorian_years", "31556952000000"}, // 365.2425
        {"days", "86400000000"},
    };
    for (const auto& [name, length] : units)
        EXPECT_EQ(readAs(std::string(name) + " since 2000-01-01", Calendar::standard,
                         LongUnits::udunitsLengths),
                  std::string(length) + " 2000-01-01");
}

TEST(ParseTimeUnits, TakesMonthsAndYearsAsStepsOfTheCalendar)
{
    const std::pair<const char*, const char*> units[] = {{"years", "12 months"},
                                                         {"months", "1 months"},
                                                         {"common_years", "31536000000000"},
                                                         {"days", "86400000000"}};
    for (const auto& [name, length] : units)
        EXPECT_EQ(readAs(std::string(name) + " since 2000-01-01", Calendar::julian,
                         LongUnits::calendarSteps),
                  std::string(length) + " 2000-01-01");
    EXPECT_EQ(readAs("months since 2000-01-01", Calendar::day360, LongUnits::calendarSteps),
              "2592000000000 2000-01-01");
}

TEST(IsTimeUnits, TellsTimesFromOtherUnitsWellFormedOrNot)
{
    for (const char* text : {"days since 1900-01-01", "days since launch", "months since", "d @ 1",
                             "fortnights since 2000-01-01", "HOURS SINCE x"})
        EXPECT_TRUE(isTimeUnits(text)) << text;
    for (const char* text : {"", "K", "days", "s", "K @ 273.15", "degC from 273.15", "since 1900",
                             "kg m-2 s-1", "1", "day as %Y%m%d.%f"})
        EXPECT_FALSE(isTimeUnits(text)) << text;
}

} // namespace
} // namespace Ovard::gridio::cf
