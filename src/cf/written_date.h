// SPDX-License-Identifier: BSD-3-Clause
// Dates as people and programs write them, in units and in selections: ISO 8601, and the looser
// forms that UDUNITS accepts.
#pragma once

#include "cf/moment.h"

#include <cstdint>
#include <string_view>

namespace Ovard::gridio::cf {

// The smallest part of a date that is written.
enum class Precision { year, month, day, hour, minute, second, millisecond, microsecond };

struct WrittenDate {
    Date date{0, 1, 1};
    int hour = 0;
    int minute = 0;
    int second = 0;
    int microsecond = 0;    // rounded: up to 1000000
    int fractionDigits = 0; // as written
    Precision precision = Precision::year;
    bool hasZone = false;
    int zoneMinutes = 0; // how far the zone's clocks are ahead of UTC
};

// Reads "2013", "2013-5", "2013-05-01", packed "20130501" and "201305", a date of any year with its
// sign; behind a whole date, after blanks or "T": "18", "18:00", "18:00:30.5", packed "1800" and
// "180030"; at the end "Z", "UTC", "GMT", "+01:00", "-6", "+0530", and, after a time, "0:00". Only
// the form is checked here, not whether the date and the time exist.
Outcome<WrittenDate> readWrittenDate(std::string_view text);

// The moment at the beginning of the written period, in UTC. Refused as by momentOfParts.
Outcome<Moment> momentOfWrittenDate(Calendar calendar, const WrittenDate& written);

} // namespace Ovard::gridio::cf
