// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_text.h"

#include "cf/ascii_text.h"
#include "cf/floor_division.h"

#include <algorithm>
#include <cstdint>

namespace Ovard::gridio::cf {
namespace {

// Writes the number with leading zeros, and with more digits than requested if it needs them.
char* writeDigits(std::uint64_t number, int digits, char* first)
{
    std::uint64_t power = 10;
    for (int i = 1; i < digits; ++i)
        power *= 10;
    while (number >= power) { // few years have more than four digits
        power *= 10;
        ++digits;
    }
    for (char* place = first + digits; place != first; number /= 10)
        *--place = static_cast<char>('0' + number % 10);
    return first + digits;
}

char* writeField(char separator, int number, int digits, char* first)
{
    *first++ = separator;
    return writeDigits(static_cast<std::uint64_t>(number), digits, first);
}

char* writeYear(std::int64_t year, char* first)
{
    if (year < 0)
        *first++ = '-';
    return writeDigits(static_cast<std::uint64_t>(year < 0 ? -year : year), 4, first);
}

Outcome<Moment> beginningOf(Calendar calendar, const Date& date)
{
    const auto moment = momentOfDay(dayNumber(calendar, date));
    if (!moment)
        return Refusal{momentRangeReason()};
    return *moment;
}

// The end of a year, a month or a day.
Outcome<Moment> endOfDates(Calendar calendar, const WrittenDate& written)
{
    const Date date = written.date;
    if (written.precision == Precision::year)
        return beginningOf(calendar, {date.year + 1, 1, 1});
    if (written.precision == Precision::month && date.month < 12)
        return beginningOf(calendar, {date.year, date.month + 1, 1});
    if (written.precision == Precision::month)
        return beginningOf(calendar, {date.year + 1, 1, 1});
    return beginningOf(calendar, dateOfDay(calendar, dayNumber(calendar, date) + 1));
}

std::int64_t lengthOf(const WrittenDate& written)
{
    switch (written.precision) {
    case Precision::hour:
        return microsecondsPerHour;
    case Precision::minute:
        return microsecondsPerMinute;
    default:
        break;
    }
    std::int64_t length = microsecondsPerSecond;
    for (int digit = 0; digit < written.fractionDigits; ++digit)
        length /= 10;
    return length;
}

} // namespace

char* writeMoment(Calendar calendar, Moment moment, Precision precision, char* first)
{
    if (moment == notATime)
        return std::copy_n("NaT", 3, first);
    const Parts parts = partsOfMoment(calendar, moment);
    first = writeYear(parts.date.year, first);
    if (precision >= Precision::month)
        first = writeField('-', parts.date.month, 2, first);
    if (precision >= Precision::day)
        first = writeField('-', parts.date.day, 2, first);
    if (precision >= Precision::hour)
        first = writeField(' ', parts.hour, 2, first);
    if (precision >= Precision::minute)
        first = writeField(':', parts.minute, 2, first);
    if (precision >= Precision::second)
        first = writeField(':', parts.second, 2, first);
    if (precision == Precision::millisecond)
        first = writeField('.', parts.microsecond / 1000, 3, first);
    if (precision == Precision::microsecond)
        first = writeField('.', parts.microsecond, 6, first);
    return first;
}

std::string momentText(Calendar calendar, Moment moment, Precision precision)
{
    std::string text(momentTextWidth(calendar, &moment, 1, precision), '\0');
    text.resize(static_cast<std::size_t>(writeMoment(calendar, moment, precision, text.data()) -
                                         text.data()));
    return text;
}

Precision exactPrecision(const Moment* moments, std::size_t count)
{
    struct Row {
        Precision precision;
        std::int64_t unit;
    };
    static constexpr Row rows[] = {{Precision::day, microsecondsPerDay},
                                   {Precision::minute, microsecondsPerMinute},
                                   {Precision::second, microsecondsPerSecond},
                                   {Precision::millisecond, microsecondsPerMillisecond},
                                   {Precision::microsecond, 1}};
    const Row* row = rows;
    for (const Moment* moment = moments; moment != moments + count; ++moment)
        while (*moment != notATime && *moment % row->unit != 0)
            ++row; // ends with 1, which divides all
    return row->precision;
}

std::size_t momentTextWidth(Calendar calendar, const Moment* moments, std::size_t count,
                            Precision precision)
{
    // The longest year is that of the first or the last moment, which have the most digits of
    // either sign.
    static constexpr std::size_t behindYear[] = {0, 3, 6, 9, 12, 15, 19, 22};
    Moment least = 0;
    Moment greatest = 0;
    bool hasTimes = false;
    for (const Moment* moment = moments; moment != moments + count; ++moment) {
        if (*moment == notATime)
            continue;
        least = hasTimes ? std::min(least, *moment) : *moment;
        greatest = hasTimes ? std::max(greatest, *moment) : *moment;
        hasTimes = true;
    }
    if (!hasTimes)
        return 3;
    char year[24];
    const auto widthOf = [&](Moment moment) {
        return static_cast<std::size_t>(writeYear(partsOfMoment(calendar, moment).date.year, year) -
                                        year);
    };
    return std::max(widthOf(least), widthOf(greatest)) +
           behindYear[static_cast<std::size_t>(precision)];
}

Outcome<Period> parsePeriod(std::string_view text, Calendar calendar)
{
    const auto written = readWrittenDate(text);
    if (!written)
        return Refusal{written.reason()};
    const bool isOfDates = written->precision <= Precision::day;
    if (isOfDates && written->zoneMinutes != 0)
        return Refusal{inQuotes(trimmed(text)) + " has a time zone but no time"};
    const auto begin = momentOfWrittenDate(calendar, *written);
    if (!begin)
        return Refusal{begin.reason()};
    if (isOfDates) {
        const auto end = endOfDates(calendar, *written);
        if (!end)
            return Refusal{end.reason()};
        return Period{*begin, *end, written->precision};
    }
    Moment end = 0;
    if (__builtin_add_overflow(*begin, lengthOf(*written), &end))
        return Refusal{momentRangeReason()};
    return Period{*begin, end, written->precision};
}

} // namespace Ovard::gridio::cf
