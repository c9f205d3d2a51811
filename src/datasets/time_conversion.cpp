// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/time_conversion.h"

#include "any_error_identifiers.h"
#include "cf/ascii_text.h"
#include "cf/time_columns.h"
#include "convert/argument_readers.h"
#include "dataset_error_identifiers.h"
#include "types/exact_numbers.h"

#include <algorithm>
#include <vector>

namespace Ovard::gridio {
namespace {

constexpr cf::Moment firstGregorianMoment = cf::firstGregorianDay * 86'400'000'000;

[[noreturn]] void raiseUnreadable(const char* kind, const std::string& text,
                                  const std::string& reason)
{
    vxErrMsgId(dataset::unreadableTime(kind, cf::inQuotes(text), reason));
}

// Dates of both are the same from 1582-10-15 on.
bool areGregorian(cf::Calendar one, cf::Calendar other)
{
    const auto isGregorian = [](cf::Calendar calendar) {
        return calendar == cf::Calendar::standard || calendar == cf::Calendar::prolepticGregorian;
    };
    return isGregorian(one) && isGregorian(other);
}

} // namespace

cf::LongUnits readLongUnits(const vxArray* a)
{
    const std::string word = readText(a, "long units");
    if (word == "refused")
        return cf::LongUnits::refused;
    if (word == "udunits")
        return cf::LongUnits::udunitsLengths;
    if (word == "calendar")
        return cf::LongUnits::calendarSteps;
    vxErrMsgId(any::unrecognizedWord("long units", word, "refused, udunits, calendar"));
}

cf::TimeUnits timeUnitsOf(const TimeScale& scale, cf::LongUnits longUnits)
{
    const auto calendar = cf::parseCalendar(scale.calendar);
    if (!calendar)
        raiseUnreadable("calendar", scale.calendar, calendar.reason());
    const auto units = cf::parseTimeUnits(scale.units, *calendar, longUnits);
    if (!units)
        raiseUnreadable("units", scale.units, units.reason());
    return *units;
}

TimeConversion::TimeConversion(const TimeScale& from, const TimeScale& to, cf::LongUnits longUnits)
    : isIdentity_(from.units == to.units && from.calendar == to.calendar),
      from_(timeUnitsOf(from, longUnits)), to_(timeUnitsOf(to, longUnits))
{
    if (from_.calendar != to_.calendar && !areGregorian(from_.calendar, to_.calendar))
        raiseUnreadable("calendar", from.calendar,
                        "its dates are not those of the calendar " + cf::inQuotes(to.calendar));
}

void TimeConversion::apply(double* values, std::size_t count) const
{
    if (isIdentity_)
        return;
    const auto raise = [&](std::size_t place, const std::string& reason) {
        vxErrMsgId(dataset::unrepresentableTime(static_cast<long>(place + 1),
                                                numberText(values[place]), reason));
    };
    std::vector<cf::Moment> moments(count);
    const cf::Misses unread =
        cf::valuesToMoments(from_, values, count, cf::Rounding::withinDouble, moments.data());
    if (unread.count > 0)
        raise(unread.first, cf::momentRangeReason());
    if (from_.calendar != to_.calendar) {
        const auto early = std::find_if(moments.begin(), moments.end(), [](cf::Moment moment) {
            return moment != cf::notATime && moment < firstGregorianMoment;
        });
        if (early != moments.end())
            raise(static_cast<std::size_t>(early - moments.begin()),
                  "before 1582-10-15 the calendars standard and proleptic_gregorian differ");
    }
    std::vector<double> converted(count);
    const cf::Misses unwritten = cf::momentsToValues(to_, moments.data(), count, converted.data());
    if (unwritten.count > 0)
        raise(unwritten.first, cf::momentRangeReason());
    std::copy(converted.begin(), converted.end(), values);
}

} // namespace Ovard::gridio
