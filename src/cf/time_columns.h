// SPDX-License-Identifier: BSD-3-Clause
// Whole columns of time coordinates at once, without an allocation for each element. time_values.h,
// moment.h and time_text.h describe the conversion of one element.
#pragma once

#include "cf/time_text.h"
#include "cf/time_values.h"

#include <cstddef>
#include <cstdint>

namespace Ovard::gridio::cf {

// Elements that cannot be converted: values out of range (momentRangeReason), moments without a
// datenum (noDatenumReason), moments that are no whole value. The result is notATime, NaN or the
// missing value. So is that of elements that are NaN, infinite or notATime, which are not counted.
struct Misses {
    std::size_t count = 0;
    std::size_t first = 0; // index, if count is not 0
};

Misses valuesToMoments(const TimeUnits& units, const double* values, std::size_t count,
                       Rounding rounding, Moment* moments);
Misses valuesToMoments(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                       Moment* moments);

Misses valuesToDatenum(const TimeUnits& units, const double* values, std::size_t count,
                       Rounding rounding, double* datenum);
Misses valuesToDatenum(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                       double* datenum);

// As [year month day hour minute second], count rows and six columns in column order;
// seconds have fractions.
Misses valuesToParts(const TimeUnits& units, const double* values, std::size_t count,
                     Rounding rounding, double* parts);
Misses valuesToParts(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                     double* parts);

Misses momentsToDatenum(Calendar calendar, const Moment* moments, std::size_t count,
                        double* datenum);
void momentsToParts(Calendar calendar, const Moment* moments, std::size_t count, double* parts);

// Texts of width bytes each, one after the other, padded with blanks. width is that of
// momentTextWidth for the same moments and precision.
void momentsToTexts(Calendar calendar, const Moment* moments, std::size_t count,
                    Precision precision, std::size_t width, char* texts);

Misses datenumToMoments(Calendar calendar, const double* datenum, std::size_t count,
                        Moment* moments);

// Values of the units. Integers must be exact; they are missing where a double would be NaN.
Misses momentsToValues(const TimeUnits& units, const Moment* moments, std::size_t count,
                       double* values);
Misses momentsToValues(const TimeUnits& units, const Moment* moments, std::size_t count,
                       std::int64_t missing, std::int64_t* values);
Misses datenumToValues(const TimeUnits& units, const double* datenum, std::size_t count,
                       double* values);
Misses datenumToValues(const TimeUnits& units, const double* datenum, std::size_t count,
                       std::int64_t missing, std::int64_t* values);

} // namespace Ovard::gridio::cf
