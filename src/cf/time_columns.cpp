// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_columns.h"

#include "cf/floor_division.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace Ovard::gridio::cf {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The number of moments per block of a conversion: few enough to stay in the first-level cache.
constexpr std::size_t blockSize = 512;

void add(Misses& total, Misses more, std::size_t offset = 0)
{
    if (more.count == 0)
        return;
    const std::size_t first = offset + more.first;
    total.first = total.count == 0 ? first : std::min(total.first, first);
    total.count += more.count;
}

// Fills results with convert's result for each element, or with missing.
template <class Element, class Result, class Convert>
Misses convertAll(const Element* elements, std::size_t count, Result missing, Result* results,
                  Convert convert)
{
    Misses misses;
    for (std::size_t i = 0; i < count; ++i) {
        const std::optional<Result> result = convert(elements[i]);
        results[i] = result ? *result : missing;
        if (!result)
            add(misses, {1, i});
    }
    return misses;
}

// Calls first(offset, size, block) and then second(offset, size, block) for each block.
template <class First, class Second> Misses inBlocks(std::size_t count, First first, Second second)
{
    Misses misses;
    Moment block[blockSize];
    for (std::size_t offset = 0; offset < count; offset += blockSize) {
        const std::size_t size = std::min(blockSize, count - offset);
        add(misses, first(offset, size, block), offset);
        add(misses, second(offset, size, block), offset);
    }
    return misses;
}

// Most steps of a column of times are on the same day as the step before.
class DateFinder {
public:
    explicit DateFinder(Calendar calendar)
        : calendar_(calendar), day_(0), date_(dateOfDay(calendar, 0))
    {
    }

    const Date& dateOf(std::int64_t day)
    {
        if (day != day_) {
            date_ = dateOfDay(calendar_, day);
            day_ = day;
        }
        return date_;
    }

private:
    Calendar calendar_;
    std::int64_t day_;
    Date date_;
};

// One element of each column, the columns being rows elements apart.
void writeParts(const Date& date, std::int64_t clock, std::size_t rows, double* parts)
{
    const auto minutes = static_cast<int>(clock / microsecondsPerMinute);
    const auto microseconds = static_cast<int>(clock % microsecondsPerMinute);
    parts[0] = static_cast<double>(date.year);
    parts[rows] = date.month;
    parts[2 * rows] = date.day;
    parts[3 * rows] = minutes / 60;
    parts[4 * rows] = minutes % 60;
    parts[5 * rows] = microseconds / static_cast<double>(microsecondsPerSecond);
}

void writePartsOfMoments(DateFinder& dates, const Moment* moments, std::size_t count,
                         std::size_t rows, double* parts)
{
    for (std::size_t i = 0; i < count; ++i) {
        if (moments[i] == notATime) {
            for (std::size_t column = 0; column < 6; ++column)
                parts[column * rows + i] = notANumber;
        } else {
            const Date& date = dates.dateOf(floorDivide(moments[i], microsecondsPerDay));
            writeParts(date, floorRemainder(moments[i], microsecondsPerDay), rows, parts + i);
        }
    }
}

template <class ToMoments>
Misses toDatenum(Calendar calendar, std::size_t count, double* datenum, ToMoments toMoments)
{
    return inBlocks(count, toMoments,
                    [&](std::size_t offset, std::size_t size, const Moment* block) {
                        return momentsToDatenum(calendar, block, size, datenum + offset);
                    });
}

template <class ToMoments>
Misses toParts(Calendar calendar, std::size_t count, double* parts, ToMoments toMoments)
{
    DateFinder dates(calendar);
    return inBlocks(count, toMoments,
                    [&](std::size_t offset, std::size_t size, const Moment* block) {
                        writePartsOfMoments(dates, block, size, count, parts + offset);
                        return Misses{};
                    });
}

// Converts through the moments of the datenum.
template <class FromMoments>
Misses fromDatenum(Calendar calendar, const double* datenum, std::size_t count,
                   FromMoments fromMoments)
{
    return inBlocks(
        count,
        [&](std::size_t offset, std::size_t size, Moment* block) {
            return datenumToMoments(calendar, datenum + offset, size, block);
        },
        fromMoments);
}

} // namespace

Misses valuesToMoments(const TimeUnits& units, const double* values, std::size_t count,
                       Rounding rounding, Moment* moments)
{
    return convertAll(values, count, notATime, moments,
                      [&](double value) { return momentOfValue(units, value, rounding); });
}

Misses valuesToMoments(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                       Moment* moments)
{
    return convertAll(values, count, notATime, moments,
                      [&](std::int64_t value) { return momentOfValue(units, value); });
}

Misses valuesToDatenum(const TimeUnits& units, const double* values, std::size_t count,
                       Rounding rounding, double* datenum)
{
    return toDatenum(units.calendar, count, datenum,
                     [&](std::size_t offset, std::size_t size, Moment* block) {
                         return valuesToMoments(units, values + offset, size, rounding, block);
                     });
}

Misses valuesToDatenum(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                       double* datenum)
{
    return toDatenum(units.calendar, count, datenum,
                     [&](std::size_t offset, std::size_t size, Moment* block) {
                         return valuesToMoments(units, values + offset, size, block);
                     });
}

Misses valuesToParts(const TimeUnits& units, const double* values, std::size_t count,
                     Rounding rounding, double* parts)
{
    return toParts(units.calendar, count, parts,
                   [&](std::size_t offset, std::size_t size, Moment* block) {
                       return valuesToMoments(units, values + offset, size, rounding, block);
                   });
}

Misses valuesToParts(const TimeUnits& units, const std::int64_t* values, std::size_t count,
                     double* parts)
{
    return toParts(units.calendar, count, parts,
                   [&](std::size_t offset, std::size_t size, Moment* block) {
                       return valuesToMoments(units, values + offset, size, block);
                   });
}

Misses momentsToDatenum(Calendar calendar, const Moment* moments, std::size_t count,
                        double* datenum)
{
    return convertAll(moments, count, notANumber, datenum,
                      [&](Moment moment) -> std::optional<double> {
                          if (moment == notATime)
                              return notANumber;
                          if (!hasDatenum(calendar, moment))
                              return std::nullopt;
                          return datenumOfMoment(moment);
                      });
}

void momentsToParts(Calendar calendar, const Moment* moments, std::size_t count, double* parts)
{
    DateFinder dates(calendar);
    writePartsOfMoments(dates, moments, count, count, parts);
}

void momentsToTexts(Calendar calendar, const Moment* moments, std::size_t count,
                    Precision precision, std::size_t width, char* texts)
{
    for (std::size_t i = 0; i < count; ++i, texts += width)
        std::fill(writeMoment(calendar, moments[i], precision, texts), texts + width, ' ');
}

Misses datenumToMoments(Calendar calendar, const double* datenum, std::size_t count,
                        Moment* moments)
{
    return convertAll(datenum, count, notATime, moments,
                      [&](double element) { return momentOfDatenum(calendar, element); });
}

Misses momentsToValues(const TimeUnits& units, const Moment* moments, std::size_t count,
                       double* values)
{
    return convertAll(moments, count, notANumber, values, [&](Moment moment) {
        return moment == notATime ? notANumber : valueOfMoment(units, moment);
    });
}

Misses momentsToValues(const TimeUnits& units, const Moment* moments, std::size_t count,
                       std::int64_t missing, std::int64_t* values)
{
    return convertAll(moments, count, missing, values, [&](Moment moment) {
        return moment == notATime ? missing : wholeValueOfMoment(units, moment);
    });
}

Misses datenumToValues(const TimeUnits& units, const double* datenum, std::size_t count,
                       double* values)
{
    return fromDatenum(units.calendar, datenum, count,
                       [&](std::size_t offset, std::size_t size, const Moment* block) {
                           return momentsToValues(units, block, size, values + offset);
                       });
}

Misses datenumToValues(const TimeUnits& units, const double* datenum, std::size_t count,
                       std::int64_t missing, std::int64_t* values)
{
    return fromDatenum(units.calendar, datenum, count,
                       [&](std::size_t offset, std::size_t size, const Moment* block) {
                           return momentsToValues(units, block, size, missing, values + offset);
                       });
}

} // namespace Ovard::gridio::cf
