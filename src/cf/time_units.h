// SPDX-License-Identifier: BSD-3-Clause
// Units of time coordinates: "hours since 1900-01-01".
#pragma once

#include "cf/moment.h"

#include <cstdint>
#include <string_view>

namespace Ovard::gridio::cf {

// How months and years, whose lengths differ, are interpreted. In every case a month of the
// calendar 360_day has 30 days and a common_year of noleap 365.
enum class LongUnits {
    refused,        // with a reason; xarray and cftime do the same
    udunitsLengths, // as CF defines them: a year has 365.242198781 days, a month a twelfth of it
    calendarSteps,  // what most writers mean: the reference date advanced by so many months, on the
                    // last day of a month that is too short; a fraction is one of the step to the
                    // next whole number
};

struct TimeUnits {
    Calendar calendar;
    Moment reference;
    // A unit lasts numerator / denominator microseconds or, if months is not 0, that many months of
    // the calendar.
    std::int64_t numerator;
    std::int64_t denominator;
    int months;
};

// Whether a "units" attribute is meant for a time coordinate, well formed or not: any word and
// "since", or a unit of time and one of the words below.
bool isTimeUnits(std::string_view text);

// UNIT since REFERENCE, letters of either case; "after", "from", "ref" and "@" mean "since". Units:
// nanosecond(s), nanosec(s), nsec(s), ns; microsecond(s), microsec(s), usec(s), us;
// millisecond(s), millisec(s), msec(s), ms; second(s), sec(s), s; minute(s), min(s); hour(s),
// hr(s), h; day(s), d; week(s); month(s), mon(s); year(s), yr(s); common_year(s), leap_year(s),
// julian_year(s), gregorian_year(s). The reference is a written date (written_date.h) that exists
// in the calendar; without a zone it is in UTC.
Outcome<TimeUnits> parseTimeUnits(std::string_view text, Calendar calendar,
                                  LongUnits longUnits = LongUnits::refused);

} // namespace Ovard::gridio::cf
