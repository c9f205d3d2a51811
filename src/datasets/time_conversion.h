// SPDX-License-Identifier: BSD-3-Clause
// Times in other units, and the reading of arguments that name units.
#pragma once

#include "cf/time_units.h"
#include "vx/array.h"

#include <string>

namespace Ovard::gridio {

// The values of the attributes "units" and "calendar".
struct TimeScale {
    std::string units;
    std::string calendar;
};

// "refused", "udunits" or "calendar". Raises unrecognizedWord for any other text.
cf::LongUnits readLongUnits(const vxArray* a);

// Raises unreadableTime.
cf::TimeUnits timeUnitsOf(const TimeScale& scale, cf::LongUnits longUnits);

class TimeConversion {
public:
    // Raises unreadableTime for texts that mean no units, and for two calendars whose dates cannot
    // be the same.
    TimeConversion(const TimeScale& from, const TimeScale& to, cf::LongUnits longUnits);

    // In place; NaN stays NaN. Raises unrepresentableTime for times out of range, and for times
    // before 1582-10-15 between the calendars standard and proleptic_gregorian.
    void apply(double* values, std::size_t count) const;

private:
    bool isIdentity_;
    cf::TimeUnits from_;
    cf::TimeUnits to_;
};

} // namespace Ovard::gridio
