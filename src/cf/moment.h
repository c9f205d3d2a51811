// SPDX-License-Identifier: BSD-3-Clause
// A moment of a calendar as one integer, its parts, and the interpreter's datenum of it.
#pragma once

#include "cf/calendar.h"
#include "cf/outcome.h"

#include <cstdint>
#include <limits>
#include <optional>
#include <string>

namespace Ovard::gridio::cf {

// Microseconds since the beginning of day number 0 of a calendar (calendar.h), without leap
// seconds. Every int64 except notATime is a moment: about the years -290,000 to 294,000. A moment
// beyond is reported as nullopt wherever one is computed.
using Moment = std::int64_t;

constexpr Moment notATime = std::numeric_limits<Moment>::min();

constexpr std::int64_t microsecondsPerMillisecond = 1000;
constexpr std::int64_t microsecondsPerSecond = 1000 * microsecondsPerMillisecond;
constexpr std::int64_t microsecondsPerMinute = 60 * microsecondsPerSecond;
constexpr std::int64_t microsecondsPerHour = 60 * microsecondsPerMinute;
constexpr std::int64_t microsecondsPerDay = 24 * microsecondsPerHour;

struct Parts {
    Date date;
    int hour;
    int minute;
    int second;
    int microsecond;
};

// The moment so many microseconds after the beginning of a day; any number of them.
std::optional<Moment> momentOfDay(std::int64_t day, std::int64_t microseconds = 0);

// Refused when the date does not exist in the calendar, when a part is out of its range, and when
// the moment is out of range.
Outcome<Moment> momentOfParts(Calendar calendar, const Parts& parts);

// Of any moment but notATime.
Parts partsOfMoment(Calendar calendar, Moment moment);

// The reason for every nullopt that means a moment out of range.
std::string momentRangeReason();

// The roundest moment within the tolerance, in microseconds, of a moment that was computed from a
// floating-point number: a whole day, hour, minute, second or millisecond, otherwise the moment
// itself. So hours stored as fractions of days become whole hours again. A tolerance below half a
// microsecond changes nothing.
Moment roundestMoment(Moment moment, double tolerance);

// Whether a moment has a datenum: a day number of the proleptic Gregorian calendar, in which
// 0000-01-01 is 1, and the time of the day as a fraction. In proleptic_gregorian every moment has;
// in standard those from 1582-10-15 on have, as earlier dates would come back as others; in the
// other calendars none has.
bool hasDatenum(Calendar calendar, Moment moment);
std::string noDatenumReason(Calendar calendar);

// The double nearest to the datenum, up to its last bit. The moment must have one.
double datenumOfMoment(Moment moment);

// The roundest moment (above) within one or two units of the datenum's last place, which is 10
// microseconds in our time: the interpreter's own arithmetic is no more exact. notATime for NaN and
// infinity, nullopt if there is no such moment or if it has no datenum in the calendar.
std::optional<Moment> momentOfDatenum(Calendar calendar, double datenum);

} // namespace Ovard::gridio::cf
