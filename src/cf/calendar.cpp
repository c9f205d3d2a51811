// SPDX-License-Identifier: BSD-3-Clause
#include "cf/calendar.h"

#include "cf/ascii_text.h"
#include "cf/floor_division.h"

#include <algorithm>
#include <array>
#include <tuple>

namespace Ovard::gridio::cf {
namespace {

// A calendar whose leap years repeat in a cycle. Standard has two of them, one after the other.
struct Rule {
    Calendar calendar;
    int commonYearDays;
    int cycleYears;
    int cycleDays;
    std::int64_t dayOfYearZero; // the day number of 0000-01-01
};

constexpr Rule gregorianRule{Calendar::prolepticGregorian, 365, 400, 146097, -719528};
constexpr Rule julianRule{Calendar::julian, 365, 4, 1461, -719530};
constexpr Rule noLeapRule{Calendar::noLeap, 365, 1, 365, std::int64_t{-1970} * 365};
constexpr Rule allLeapRule{Calendar::allLeap, 366, 1, 366, std::int64_t{-1970} * 366};
constexpr Rule day360Rule{Calendar::day360, 360, 1, 360, std::int64_t{-1970} * 360};

constexpr Date lastJulianDate{1582, 10, 4};
constexpr Date firstGregorianDate{1582, 10, 15};

using MonthStarts = std::array<int, 13>; // days of the year before each month, and of all twelve
constexpr MonthStarts commonMonths{0, 31, 59, 90, 120, 151, 181, 212, 243, 273, 304, 334, 365};
constexpr MonthStarts leapMonths{0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366};
constexpr MonthStarts evenMonths{0, 30, 60, 90, 120, 150, 180, 210, 240, 270, 300, 330, 360};

constexpr std::array<const char*, 12> monthNames{"January",   "February", "March",    "April",
                                                 "May",       "June",     "July",     "August",
                                                 "September", "October",  "November", "December"};

bool isBefore(const Date& a, const Date& b)
{
    return std::tie(a.year, a.month, a.day) < std::tie(b.year, b.month, b.day);
}

const Rule& ruleOfDate(Calendar calendar, const Date& date)
{
    switch (calendar) {
    case Calendar::standard:
        return isBefore(date, firstGregorianDate) ? julianRule : gregorianRule;
    case Calendar::prolepticGregorian:
        return gregorianRule;
    case Calendar::julian:
        return julianRule;
    case Calendar::noLeap:
        return noLeapRule;
    case Calendar::allLeap:
        return allLeapRule;
    case Calendar::day360:
        break;
    }
    return day360Rule;
}

// All days of a month follow one rule; October 1582 has 31 as its last day in both.
const Rule& ruleOfMonth(Calendar calendar, std::int64_t year, int month)
{
    return ruleOfDate(calendar, {year, month, 31});
}

bool isLeapYear(const Rule& rule, std::int64_t year)
{
    if (rule.cycleYears == 1)
        return rule.commonYearDays == 366;
    return year % 4 == 0 && (rule.cycleYears == 4 || year % 100 != 0 || year % 400 == 0);
}

// Days from 0000-01-01 to January 1st of the year.
std::int64_t daysBeforeYear(const Rule& rule, std::int64_t year)
{
    std::int64_t days = year * rule.commonYearDays;
    if (rule.cycleYears > 1)
        days += floorDivide(year + 3, 4);
    if (rule.cycleYears == 400)
        days += floorDivide(year + 399, 400) - floorDivide(year + 99, 100);
    return days;
}

const MonthStarts& monthStarts(const Rule& rule, std::int64_t year)
{
    if (rule.commonYearDays == 360)
        return evenMonths;
    return isLeapYear(rule, year) ? leapMonths : commonMonths;
}

std::int64_t dayNumberByRule(const Rule& rule, const Date& date)
{
    const auto month = static_cast<std::size_t>(date.month - 1);
    return rule.dayOfYearZero + daysBeforeYear(rule, date.year) +
           monthStarts(rule, date.year)[month] + date.day - 1;
}

Date dateByRule(const Rule& rule, std::int64_t day)
{
    const std::int64_t days = day - rule.dayOfYearZero;
    const std::int64_t cycle = floorDivide(days, rule.cycleDays);
    const std::int64_t rest = floorRemainder(days, rule.cycleDays);
    std::int64_t year = rest * rule.cycleYears / rule.cycleDays; // wrong by one at most
    if (daysBeforeYear(rule, year) > rest)
        --year;
    else if (daysBeforeYear(rule, year + 1) <= rest)
        ++year;

    const int left = static_cast<int>(rest - daysBeforeYear(rule, year));
    const MonthStarts& starts = monthStarts(rule, year);
    std::size_t month = static_cast<std::size_t>(left) / 32; // too early by one at most
    if (starts[month + 1] <= left)
        ++month;
    return {cycle * rule.cycleYears + year, static_cast<int>(month) + 1, left - starts[month] + 1};
}

std::string yearText(std::int64_t year)
{
    const std::string digits = std::to_string(year < 0 ? -year : year);
    return (year < 0 ? "-" : "") + std::string(digits.size() < 4 ? 4 - digits.size() : 0, '0') +
           digits;
}

std::string whyNoDay(Calendar calendar, const Date& date)
{
    const std::string text = dateText(date) + " does not exist in calendar ";
    const std::string name(calendarName(calendar));
    if (date.day < 1)
        return text + name + "; days are counted from 1";

    const std::string length =
        " has " + std::to_string(lastDayOfMonth(calendar, date.year, date.month)) + " days";
    if (calendar == Calendar::day360)
        return text + name + "; every month" + length;
    const bool varies = date.month == 2 && ruleOfDate(calendar, date).cycleYears > 1;
    return text + name + "; " + monthNames[static_cast<std::size_t>(date.month - 1)] +
           (varies ? " " + yearText(date.year) : "") + length;
}

bool isInGap(Calendar calendar, const Date& date)
{
    return calendar == Calendar::standard && isBefore(lastJulianDate, date) &&
           isBefore(date, firstGregorianDate);
}

} // namespace

Outcome<Calendar> parseCalendar(std::string_view name)
{
    struct Row {
        std::string_view name;
        Calendar calendar;
    };
    // clang-format off
    static constexpr Row rows[] = {
        {"standard",            Calendar::standard},
        {"gregorian",           Calendar::standard},
        {"proleptic_gregorian", Calendar::prolepticGregorian},
        {"julian",              Calendar::julian},
        {"noleap",              Calendar::noLeap},
        {"365_day",             Calendar::noLeap},
        {"all_leap",            Calendar::allLeap},
        {"366_day",             Calendar::allLeap},
        {"360_day",             Calendar::day360},
    };
    // clang-format on
    const std::string wanted = lowered(trimmed(name));
    const auto* row = std::find_if(std::begin(rows), std::end(rows),
                                   [&](const Row& candidate) { return candidate.name == wanted; });
    if (row != std::end(rows))
        return row->calendar;
    if (wanted == "none")
        return Refusal{"calendar \"none\" has no dates"};
    if (wanted == "utc" || wanted == "tai")
        return Refusal{"calendar " + inQuotes(wanted) +
                       ", which counts leap seconds, is not supported"};
    return Refusal{"calendar " + inQuotes(trimmed(name)) +
                   " is not one of standard, proleptic_gregorian, julian, noleap, all_leap and "
                   "360_day"};
}

std::string_view calendarName(Calendar calendar)
{
    switch (calendar) {
    case Calendar::standard:
        return "standard";
    case Calendar::prolepticGregorian:
        return "proleptic_gregorian";
    case Calendar::julian:
        return "julian";
    case Calendar::noLeap:
        return "noleap";
    case Calendar::allLeap:
        return "all_leap";
    case Calendar::day360:
        break;
    }
    return "360_day";
}

bool isLeapYear(Calendar calendar, std::int64_t year)
{
    return isLeapYear(ruleOfDate(calendar, {year, 2, 1}), year);
}

int lastDayOfMonth(Calendar calendar, std::int64_t year, int month)
{
    const MonthStarts& starts = monthStarts(ruleOfMonth(calendar, year, month), year);
    const auto index = static_cast<std::size_t>(month - 1);
    return starts[index + 1] - starts[index];
}

int monthLength(Calendar calendar, std::int64_t year, int month)
{
    const bool hasGap = isInGap(calendar, {year, month, lastJulianDate.day + 1});
    return lastDayOfMonth(calendar, year, month) -
           (hasGap ? firstGregorianDate.day - lastJulianDate.day - 1 : 0);
}

int yearLength(Calendar calendar, std::int64_t year)
{
    return dayOfYear(calendar, {year, 12, lastDayOfMonth(calendar, year, 12)});
}

bool dateExists(Calendar calendar, const Date& date)
{
    return date.year >= -largestYear && date.year <= largestYear && date.month >= 1 &&
           date.month <= 12 && date.day >= 1 &&
           date.day <= lastDayOfMonth(calendar, date.year, date.month) && !isInGap(calendar, date);
}

std::string whyNoDate(Calendar calendar, const Date& date)
{
    if (dateExists(calendar, date))
        return "";
    if (date.year < -largestYear || date.year > largestYear)
        return "year " + std::to_string(date.year) + " is out of range";
    if (date.month < 1 || date.month > 12)
        return dateText(date) + " does not exist; months are 1 to 12";
    if (isInGap(calendar, date))
        return dateText(date) + " does not exist in calendar standard; " +
               dateText(lastJulianDate) + " is followed by " + dateText(firstGregorianDate);
    return whyNoDay(calendar, date);
}

std::int64_t dayNumber(Calendar calendar, const Date& date)
{
    return dayNumberByRule(ruleOfDate(calendar, date), date);
}

Date dateOfDay(Calendar calendar, std::int64_t day)
{
    if (calendar == Calendar::standard)
        return dateByRule(day < firstGregorianDay ? julianRule : gregorianRule, day);
    return dateByRule(ruleOfDate(calendar, {}), day);
}

int dayOfYear(Calendar calendar, const Date& date)
{
    return static_cast<int>(dayNumber(calendar, date) - dayNumber(calendar, {date.year, 1, 1})) + 1;
}

Season seasonOfMonth(int month) { return static_cast<Season>(month % 12 / 3); }

std::string_view seasonName(Season season)
{
    static constexpr std::string_view names[] = {"DJF", "MAM", "JJA", "SON"};
    return names[static_cast<std::size_t>(season)];
}

std::string dateText(const Date& date)
{
    std::string text = yearText(date.year);
    for (const int field : {date.month, date.day})
        text.append(field >= 0 && field < 10 ? "-0" : "-").append(std::to_string(field));
    return text;
}

} // namespace Ovard::gridio::cf
