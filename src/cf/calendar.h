// SPDX-License-Identifier: BSD-3-Clause
// The calendars of the CF conventions 1.11: dates and day numbers.
#pragma once

#include "cf/outcome.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace Ovard::gridio::cf {

// standard is Julian until 1582-10-04, followed by 1582-10-15, from which on it is Gregorian.
enum class Calendar { standard, prolepticGregorian, julian, noLeap, allLeap, day360 };

// Years are numbered astronomically in every calendar: the year before 1 is 0, the one before that
// is -1. In standard and julian, where historians write 1 BC for the year before 1, year 0 is 1 BC
// and year -44 is 45 BC; year 0 is a leap year there, as it is in proleptic_gregorian.
struct Date {
    std::int64_t year;
    int month; // 1 to 12
    int day;   // from 1
};

// Dates exist from -largestYear to largestYear.
constexpr std::int64_t largestYear = 1'000'000'000'000'000;

// The first Gregorian day of the standard calendar, 1582-10-15, as a day number.
constexpr std::int64_t firstGregorianDay = -141427;

// From the value of a "calendar" attribute, in letters of either case; accepts "gregorian",
// "365_day" and "366_day", too.
Outcome<Calendar> parseCalendar(std::string_view name);

// The name that CF prefers: "standard", "noleap", "all_leap".
std::string_view calendarName(Calendar calendar);

bool isLeapYear(Calendar calendar, std::int64_t year);

// The number of days of a month or a year: 21 and 355 for 1582-10 and 1582 in standard.
int monthLength(Calendar calendar, std::int64_t year, int month);
int yearLength(Calendar calendar, std::int64_t year);

// The number of a month's last day: 31 for 1582-10 in standard.
int lastDayOfMonth(Calendar calendar, std::int64_t year, int month);

bool dateExists(Calendar calendar, const Date& date);

// Why a date does not exist, with the date itself; empty if it does.
std::string whyNoDate(Calendar calendar, const Date& date);

// Days since 1970-01-01 of the calendar itself; in julian since 1969-12-19, so that standard,
// proleptic_gregorian and julian give the same day the same number. The date must exist.
std::int64_t dayNumber(Calendar calendar, const Date& date);

// The date of a day number within those of the largest years.
Date dateOfDay(Calendar calendar, std::int64_t day);

// 1 for January 1st. The date must exist.
int dayOfYear(Calendar calendar, const Date& date);

// The meteorological seasons. December belongs to the season of the following January.
enum class Season { djf, mam, jja, son };
Season seasonOfMonth(int month);
std::string_view seasonName(Season season); // "DJF"

// "2013-05-01", with a sign and more digits where the year needs them: "-0044-03-15".
std::string dateText(const Date& date);

} // namespace Ovard::gridio::cf
