// SPDX-License-Identifier: BSD-3-Clause
#include "cf/written_date.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <utility>

namespace Ovard::gridio::cf {
namespace {

// What was read, as "year-month-day hour:minute:second.microsecond precision zone".
std::string readAs(const std::string& text)
{
    const auto written = readWrittenDate(text);
    if (!written)
        return written.reason();
    static const char* const names[] = {"year",   "month",  "day",         "hour",
                                        "minute", "second", "millisecond", "microsecond"};
    char line[200];
    std::snprintf(line, sizeof line, "%lld-%d-%d %d:%d:%d.%d %s",
                  static_cast<long long>(written->date.year), written->date.month,
                  written->date.day, written->hour, written->minute, written->second,
                  written->microsecond, names[static_cast<int>(written->precision)]);
    return line + (written->hasZone ? " " + std::to_string(written->zoneMinutes) : std::string());
}

TEST(ReadWrittenDate, TakesTheFormsThatAreFound)
{
    const std::pair<const char*, const char*> forms[] = {
        {"2013", "2013-1-1 0:0:0.0 year"},
        {"1", "1-1-1 0:0:0.0 year"},
        {"-500", "-500-1-1 0:0:0.0 year"},
        {"+2013", "2013-1-1 0:0:0.0 year"},
        {"2013-05", "2013-5-1 0:0:0.0 month"},
        {"201305", "2013-5-1 0:0:0.0 month"},
        {"1900-01-01", "1900-1-1 0:0:0.0 day"},
        {"  1900-1-1\n", "1900-1-1 0:0:0.0 day"},
        {"20130501", "2013-5-1 0:0:0.0 day"},
        {"-0044-03-15", "-44-3-15 0:0:0.0 day"},
        {"12345-06-07", "12345-6-7 0:0:0.0 day"},
        {"2013-05-01 18", "2013-5-1 18:0:0.0 hour"},
        {"1900-1-1 0:0:0", "1900-1-1 0:0:0.0 second"},
        {"2013-05-01 18:30", "2013-5-1 18:30:0.0 minute"},
        {"1-1-1 00:00:0.0", "1-1-1 0:0:0.0 millisecond"},
        {"1970-01-01 00:00:0.", "1970-1-1 0:0:0.0 second"},
        {"2013-05-01T18:30:05,25", "2013-5-1 18:30:5.250000 millisecond"},
        {"2013-05-01T18:30:05.1234", "2013-5-1 18:30:5.123400 microsecond"},
        {"2013-05-01t18:30:05.0000000", "2013-5-1 18:30:5.0 microsecond"},
        {"2013-05-01 18:30:05.9999999", "2013-5-1 18:30:5.1000000 microsecond"},
        {"19700101T000000", "1970-1-1 0:0:0.0 second"},
        {"19700101T0130", "1970-1-1 1:30:0.0 minute"},
        {"19700101T013059.5Z", "1970-1-1 1:30:59.500000 millisecond 0"},
        {"1970-01-01T00:00:00Z", "1970-1-1 0:0:0.0 second 0"},
        {"1970-01-01Z", "1970-1-1 0:0:0.0 day 0"},
        {"1950-01-01 00:00:00 UTC", "1950-1-1 0:0:0.0 second 0"},
        {"1950-01-01 UTC", "1950-1-1 0:0:0.0 day 0"},
        {"1950-01-01 00:00 gmt", "1950-1-1 0:0:0.0 minute 0"},
        {"1950-01-01 00:00 UTC+1", "1950-1-1 0:0:0.0 minute 60"},
        {"1950-01-01 00:00:00 +01:00", "1950-1-1 0:0:0.0 second 60"},
        {"1950-01-01 00:00:00+01:00", "1950-1-1 0:0:0.0 second 60"},
        {"1950-01-01 00:00:00 -6", "1950-1-1 0:0:0.0 second -360"},
        {"1950-01-01 -6", "1950-1-1 0:0:0.0 day -360"},
        {"1992-10-8 15:15:42.5 -6:00", "1992-10-8 15:15:42.500000 millisecond -360"},
        {"1950-01-01T00:00:00+0530", "1950-1-1 0:0:0.0 second 330"},
        {"1950-01-01T00:00:00-130", "1950-1-1 0:0:0.0 second -90"},
        {"1950-01-01 00:00:0.0 0:00", "1950-1-1 0:0:0.0 millisecond 0"},
        {"1950-01-01 00:00 5", "1950-1-1 0:0:0.0 minute 300"},
        {"2013-99-99 99:99:99", "2013-99-99 99:99:99.0 second"}, // only the form is judged here
    };
    for (const auto& [text, expected] : forms)
        EXPECT_EQ(readAs(text), expected) << text;
}

TEST(ReadWrittenDate, RefusesOthersWithTheTextAndAReason)
{
    const std::pair<const char*, const char*> texts[] = {
        {"", "the date is empty"},
        {" \n", "the date is empty"},
        {"yesterday", "\"yesterday\" does not begin with a year"},
        {"--1", "\"--1\" does not begin with a year"},
        {"12345", "\"12345\" is not clear without hyphens"},
        {"1234567", "\"1234567\" is not clear without hyphens"},
        {"20130501180000", "\"20130501180000\" is not clear without hyphens"},
        {"12345678901234567-1-1", "\"12345678901234567-1-1\" has a year of too many digits"},
        {"2013-", "\"2013-\" has no month of one or two digits"},
        {"2013-123", "\"2013-123\" has no month of one or two digits"},
        {"2013-05-", "\"2013-05-\" has no day of one or two digits"},
        {"2013-05-011", "\"2013-05-011\" has no day of one or two digits"},
        {"2013/05/01", "\"2013/05/01\" is not a date like 2013-05-01"},
        {"2013-05 18:00", "\"2013-05 18:00\" needs a whole date before a time or a time zone"},
        {"2013-05-01T", "\"2013-05-01T\" has no time where one is expected"},
        {"2013-05-01 noon", "\"2013-05-01 noon\" has no time where one is expected"},
        {"2013-05-01 180", "\"2013-05-01 180\" has a time that is not clear without colons"},
        {"2013-05-01 123:00", "\"2013-05-01 123:00\" has no hour of one or two digits"},
        {"2013-05-01 12:", "\"2013-05-01 12:\" has no minute of one or two digits"},
        {"2013-05-01 12:00:", "\"2013-05-01 12:00:\" has no second of one or two digits"},
        {"2013-05-01 12:00 pm", "\"2013-05-01 12:00 pm\" has \"pm\" at its end"},
        {"2013-05-01x", "\"2013-05-01x\" has \"x\" at its end"},
        {"2013-05-01 12:00 zulu", "\"2013-05-01 12:00 zulu\" has \"ulu\" at its end"},
        {"2013-05-01 12:00 +", "\"2013-05-01 12:00 +\" has a time zone that is not like +01:00"},
        {"2013-05-01 12:00 -+6",
         "\"2013-05-01 12:00 -+6\" has a time zone that is not like +01:00"},
        {"2013-05-01 12:00 +12345",
         "\"2013-05-01 12:00 +12345\" has a time zone that is not like +01:00"},
        {"2013-05-01 12:00 +0100:00",
         "\"2013-05-01 12:00 +0100:00\" has a time zone that is not like +01:00"},
        {"2013-05-01 12:00 +1:",
         "\"2013-05-01 12:00 +1:\" has no minute in its time zone of one or two digits"},
        {"2013-05-01 12:00 +24",
         "\"2013-05-01 12:00 +24\" has a time zone that is not less than a day"},
        {"2013-05-01 12:00 +1:60",
         "\"2013-05-01 12:00 +1:60\" has a time zone that is not less than a day"},
    };
    for (const auto& [text, reason] : texts)
        EXPECT_EQ(readAs(text), reason) << text;
}

TEST(MomentOfWrittenDate, SubtractsTheZoneAndAddsTheFraction)
{
    const std::pair<const char*, const char*> equals[] = {
        {"1970-01-01 01:00 +01:00", "1970-01-01 00:00"},
        {"1969-12-31 18:00 -6", "1970-01-01Z"},
        {"1970-01-01 00:00:59.9999999", "1970-01-01 00:01"},
        {"1970-02-28 23:30 -01:00", "1970-03-01 00:30"},
    };
    for (const auto& [one, other] : equals)
        EXPECT_EQ(*momentOfWrittenDate(Calendar::noLeap, *readWrittenDate(one)),
                  *momentOfWrittenDate(Calendar::noLeap, *readWrittenDate(other)))
            << one;
}

TEST(MomentOfWrittenDate, RefusesWhatDoesNotExist)
{
    const std::pair<const char*, const char*> texts[] = {
        {"2013-02-30", "2013-02-30 does not exist in calendar noleap; February has 28 days"},
        {"2013-05-01 24:00", "hour 24 does not exist; it is 0 to 23"},
        {"2013-05-01 23:59:60", "second 60 does not exist; it is 0 to 59"},
        {"9999999999999999-01-01", "year 9999999999999999 is out of range"},
        {"400000-01-01", "a time must lie within 292,000 years of 1970"},
    };
    for (const auto& [text, reason] : texts)
        EXPECT_EQ(momentOfWrittenDate(Calendar::noLeap, *readWrittenDate(text)).reason(), reason);
}

} // namespace
} // namespace Ovard::gridio::cf
