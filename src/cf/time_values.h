// SPDX-License-Identifier: BSD-3-Clause
// Conversion of single values of time coordinates to moments, and back.
#pragma once

#include "cf/time_units.h"

#include <cstdint>
#include <optional>

namespace Ovard::gridio::cf {

// Which moment a stored floating-point value means. A value has the precision of its type: an hour
// counted in days since the year 1 may be 5 microseconds off as a double, and one counted in days
// since 1950 a minute as a float.
enum class Rounding {
    toMicrosecond, // the nearest microsecond, of two the even one, as cftime does
    withinDouble,  // roundestMoment within one or two units of the last place of a double
    withinSingle,  // the same for a value that was stored as a float
};

// notATime for NaN and infinity, nullopt out of range. The reference of the units must be a moment.
std::optional<Moment> momentOfValue(const TimeUnits& units, double value, Rounding rounding);
std::optional<Moment> momentOfValue(const TimeUnits& units, std::int64_t value);

// The double nearest to the exact value, of two the even one; with calendar steps, up to its last
// bit. nullopt out of range. The moment must not be notATime.
std::optional<double> valueOfMoment(const TimeUnits& units, Moment moment);

// nullopt also when the value is not a whole number.
std::optional<std::int64_t> wholeValueOfMoment(const TimeUnits& units, Moment moment);

} // namespace Ovard::gridio::cf
