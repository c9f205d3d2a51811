// SPDX-License-Identifier: BSD-3-Clause
#include "cf/moment.h"

#include "cf/floor_division.h"

#include <cmath>

namespace Ovard::gridio::cf {
namespace {

constexpr std::int64_t datenumOfDayZero = 719529;

// Sets rounded to the nearest multiple of a unit and returns true if it is within reach. A constant
// unit is divided by much faster.
template <std::int64_t unit> bool roundWithin(Moment moment, double reach, Moment& rounded)
{
    const std::int64_t past = floorRemainder(moment, unit);
    const std::int64_t step = past < unit - past ? -past : unit - past;
    if (std::fabs(static_cast<double>(step)) > reach)
        return false;
    rounded = moment + step;
    return true;
}

std::string whyNoClock(const Parts& parts)
{
    struct Row {
        const char* name;
        int value;
        int end;
    };
    for (const Row& row :
         {Row{"hour", parts.hour, 24}, Row{"minute", parts.minute, 60},
          Row{"second", parts.second, 60}, Row{"microsecond", parts.microsecond, 1'000'000}})
        if (row.value < 0 || row.value >= row.end)
            return std::string(row.name) + " " + std::to_string(row.value) +
                   " does not exist; it is 0 to " + std::to_string(row.end - 1);
    return "";
}

} // namespace

std::optional<Moment> momentOfDay(std::int64_t day, std::int64_t microseconds)
{
    // Before day 0 counted from the day's end: the first moments are less than a day after a
    // beginning that is out of range.
    const bool fromEnd = day < 0;
    std::int64_t fixed = 0;
    Moment moment = 0;
    if (__builtin_mul_overflow(fromEnd ? day + 1 : day, microsecondsPerDay, &fixed) ||
        __builtin_sub_overflow(microseconds, fromEnd ? microsecondsPerDay : 0, &microseconds) ||
        __builtin_add_overflow(fixed, microseconds, &moment) || moment == notATime)
        return std::nullopt;
    return moment;
}

Outcome<Moment> momentOfParts(Calendar calendar, const Parts& parts)
{
    std::string reason = whyNoDate(calendar, parts.date);
    if (reason.empty())
        reason = whyNoClock(parts);
    if (!reason.empty())
        return Refusal{std::move(reason)};

    const std::int64_t clock = parts.hour * microsecondsPerHour +
                               parts.minute * microsecondsPerMinute +
                               parts.second * microsecondsPerSecond + parts.microsecond;
    const auto moment = momentOfDay(dayNumber(calendar, parts.date), clock);
    if (!moment)
        return Refusal{momentRangeReason()};
    return *moment;
}

Parts partsOfMoment(Calendar calendar, Moment moment)
{
    const auto clock = floorRemainder(moment, microsecondsPerDay);
    const auto part = [clock](std::int64_t unit, std::int64_t whole) {
        return static_cast<int>(clock % whole / unit);
    };
    return {dateOfDay(calendar, floorDivide(moment, microsecondsPerDay)),
            part(microsecondsPerHour, microsecondsPerDay),
            part(microsecondsPerMinute, microsecondsPerHour),
            part(microsecondsPerSecond, microsecondsPerMinute), part(1, microsecondsPerSecond)};
}

std::string momentRangeReason() { return "a time must lie within 292,000 years of 1970"; }

Moment roundestMoment(Moment moment, double tolerance)
{
    constexpr Moment largest = std::numeric_limits<Moment>::max() - microsecondsPerDay;
    if (tolerance < 0.5 || moment > largest || moment < -largest)
        return moment;

    // Half a microsecond more, since the moment itself has been rounded. A multiple of a unit is
    // one of the units before, too.
    const double reach = tolerance + 0.5;
    Moment roundest = moment;
    static_cast<void>(roundWithin<microsecondsPerMillisecond>(moment, reach, roundest) &&
                      roundWithin<microsecondsPerSecond>(moment, reach, roundest) &&
                      roundWithin<microsecondsPerMinute>(moment, reach, roundest) &&
                      roundWithin<microsecondsPerHour>(moment, reach, roundest) &&
                      roundWithin<microsecondsPerDay>(moment, reach, roundest));
    return roundest;
}

bool hasDatenum(Calendar calendar, Moment moment)
{
    return calendar == Calendar::prolepticGregorian ||
           (calendar == Calendar::standard && moment >= firstGregorianDay * microsecondsPerDay);
}

std::string noDatenumReason(Calendar calendar)
{
    const std::string name(calendarName(calendar));
    if (calendar == Calendar::standard)
        return "dates before 1582-10-15 of calendar standard have no datenum";
    return "dates of calendar " + name + " have no datenum";
}

double datenumOfMoment(Moment moment)
{
    const auto day = floorDivide(moment, microsecondsPerDay) + datenumOfDayZero;
    const auto clock = floorRemainder(moment, microsecondsPerDay);
    return static_cast<double>(day) +
           static_cast<double>(clock) / static_cast<double>(microsecondsPerDay);
}

std::optional<Moment> momentOfDatenum(Calendar calendar, double datenum)
{
    constexpr double largest = 2e8; // beyond every moment
    constexpr auto perDay = static_cast<double>(microsecondsPerDay);
    if (!std::isfinite(datenum))
        return notATime;
    if (std::fabs(datenum) > largest)
        return std::nullopt;

    const auto day = static_cast<std::int64_t>(datenum);
    const double fraction = datenum - static_cast<double>(day);
    const auto moment = momentOfDay(day - datenumOfDayZero, std::llrint(fraction * perDay));
    if (!moment)
        return std::nullopt;
    const double lastPlace = std::fabs(datenum) * std::numeric_limits<double>::epsilon();
    const Moment roundest = roundestMoment(*moment, lastPlace * perDay);
    if (!hasDatenum(calendar, roundest))
        return std::nullopt;
    return roundest;
}

} // namespace Ovard::gridio::cf
