// SPDX-License-Identifier: BSD-3-Clause
// convert_times: answers each line of its input with one line, for the comparisons with cftime and
// with the interpreter.
//     value|CALENDAR|UNITS|VALUE     year month day hour minute second microsecond value datenum
//     date|CALENDAR|DATE             the day of the year, for a date that exists
//     datenum|CALENDAR|UNITS|DATENUM the value
// Refused input is answered with "refused" and the reason.
#include "cf/time_text.h"
#include "cf/time_values.h"

#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

namespace {

using namespace Ovard::gridio::cf;

std::vector<std::string> fieldsOf(const std::string& line)
{
    std::vector<std::string> fields;
    std::size_t begin = 0;
    for (std::size_t end = 0; end != std::string::npos; begin = end + 1) {
        end = line.find('|', begin);
        fields.push_back(line.substr(begin, end - begin));
    }
    return fields;
}

void refuse(const std::string& reason) { std::printf("refused %s\n", reason.c_str()); }

// The value of the moment, unless it is refused.
std::optional<double> valueOf(const TimeUnits& units, std::optional<Moment> moment,
                              const std::string& reason)
{
    const auto value = moment && *moment != notATime ? valueOfMoment(units, *moment) : std::nullopt;
    if (!value)
        refuse(moment == notATime ? "it is not a time" : reason);
    return value;
}

void answerValue(const TimeUnits& units, const std::string& text)
{
    const double given = std::strtod(text.c_str(), nullptr);
    const auto moment = momentOfValue(units, given, Rounding::toMicrosecond);
    const auto value = valueOf(units, moment, momentRangeReason());
    if (!value)
        return;
    const Parts parts = partsOfMoment(units.calendar, *moment);
    std::printf("%lld %d %d %d %d %d %d %.17g ", static_cast<long long>(parts.date.year),
                parts.date.month, parts.date.day, parts.hour, parts.minute, parts.second,
                parts.microsecond, *value);
    if (hasDatenum(units.calendar, *moment))
        std::printf("%.17g\n", datenumOfMoment(*moment));
    else
        std::printf("none\n");
}

void answerDatenum(const TimeUnits& units, const std::string& text)
{
    const auto moment = momentOfDatenum(units.calendar, std::strtod(text.c_str(), nullptr));
    const auto value = valueOf(units, moment, noDatenumReason(units.calendar));
    if (value)
        std::printf("%.17g\n", *value);
}

void answerDate(Calendar calendar, const std::string& text)
{
    const auto period = parsePeriod(text, calendar);
    if (!period)
        return refuse(period.reason());
    std::printf("%d\n", dayOfYear(calendar, partsOfMoment(calendar, period->begin).date));
}

// Most lines have the units of the line before.
const Outcome<TimeUnits>& readOnce(const std::string& text, Calendar calendar)
{
    static std::string lastText;
    static Calendar lastCalendar = Calendar::standard;
    static Outcome<TimeUnits> units = parseTimeUnits(lastText, lastCalendar);
    if (text != lastText || calendar != lastCalendar) {
        units = parseTimeUnits(text, calendar);
        lastText = text;
        lastCalendar = calendar;
    }
    return units;
}

void answer(const std::string& line)
{
    const std::vector<std::string> fields = fieldsOf(line);
    const auto calendar = parseCalendar(fields.size() > 1 ? fields[1] : "");
    if (!calendar)
        return refuse(calendar.reason());
    if (fields.size() == 3 && fields[0] == "date")
        return answerDate(*calendar, fields[2]);
    if (fields.size() != 4)
        return refuse("the line is not understood");
    const auto& units = readOnce(fields[2], *calendar);
    if (!units)
        return refuse(units.reason());
    if (fields[0] == "value")
        return answerValue(*units, fields[3]);
    answerDatenum(*units, fields[3]);
}

} // namespace

int main()
{
    std::ios::sync_with_stdio(false);
    for (std::string line; std::getline(std::cin, line);)
        answer(line);
    return std::fflush(stdout) == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
