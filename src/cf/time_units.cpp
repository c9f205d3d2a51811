// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_units.h"

#include "cf/ascii_text.h"
#include "cf/written_date.h"

#include <algorithm>
#include <string>

namespace Ovard::gridio::cf {
namespace {

enum class Kind { fixed, month, year, commonYear, otherYear };

struct UnitRow {
    const char* names; // with a blank before and behind each
    Kind kind;
    std::int64_t numerator; // of its length in microseconds
    std::int64_t denominator;
};

constexpr std::int64_t day = microsecondsPerDay;

// The length of a year is UDUNITS': 365.242198781 days.
// clang-format off
constexpr UnitRow unitRows[] = {
    {" nanosecond nanoseconds nanosec nanosecs nsec nsecs ns ",         Kind::fixed, 1,       1000},
    {" microsecond microseconds microsec microsecs usec usecs us ",     Kind::fixed, 1,          1},
    {" millisecond milliseconds millisec millisecs msec msecs ms ",     Kind::fixed, 1000,       1},
    {" second seconds sec secs s ",          Kind::fixed,      microsecondsPerSecond,            1},
    {" minute minutes min mins ",            Kind::fixed,      microsecondsPerMinute,            1},
    {" hour hours hr hrs h ",                Kind::fixed,      microsecondsPerHour,              1},
    {" day days d ",                         Kind::fixed,      day,                              1},
    {" week weeks ",                         Kind::fixed,      7 * day,                          1},
    {" month months mon mons ",              Kind::month,      13'148'719'156'116,               5},
    {" year years yr yrs ",                  Kind::year,       157'784'629'873'392,              5},
    {" common_year common_years ",           Kind::commonYear, 365 * day,                        1},
    {" leap_year leap_years ",               Kind::otherYear,  366 * day,                        1},
    {" julian_year julian_years ",           Kind::otherYear,  365 * day + day / 4,              1},
    {" gregorian_year gregorian_years ",     Kind::otherYear,  365 * day + day / 10'000 * 2'425, 1},
};
// clang-format on

const UnitRow* findUnit(std::string_view name)
{
    if (name.empty())
        return nullptr;
    const std::string wanted = " " + lowered(name) + " ";
    const auto* row = std::find_if(std::begin(unitRows), std::end(unitRows), [&](const UnitRow& r) {
        return std::string_view(r.names).find(wanted) != std::string_view::npos;
    });
    return row == std::end(unitRows) ? nullptr : row;
}

// The three pieces of UNIT since REFERENCE; the later ones are empty where the text ends or goes on
// otherwise.
struct Pieces {
    std::string_view unit;
    std::string_view shift; // "since" or another word of its meaning, as written
    std::string_view reference;
};

std::string_view takeWord(std::string_view& rest)
{
    rest = trimmed(rest);
    const auto end =
        std::find_if(rest.begin(), rest.end(), [](char c) { return !isLetter(c) && c != '_'; });
    const std::string_view word = rest.substr(0, static_cast<std::size_t>(end - rest.begin()));
    rest.remove_prefix(word.size());
    return word;
}

Pieces split(std::string_view text)
{
    Pieces pieces;
    std::string_view rest = text;
    pieces.unit = takeWord(rest);
    rest = trimmed(rest);
    std::string_view shift = rest.substr(0, 1);
    if (shift == "@")
        rest.remove_prefix(1);
    else
        shift = takeWord(rest);

    const std::string word = lowered(shift);
    for (const char* known : {"since", "after", "from", "ref", "@"})
        if (word == known) {
            pieces.shift = shift;
            pieces.reference = trimmed(rest);
        }
    return pieces;
}

Outcome<TimeUnits> lengthOf(const UnitRow& row, std::string_view name, Calendar calendar,
                            LongUnits longUnits)
{
    TimeUnits units{calendar, 0, row.numerator, row.denominator, 0};
    if (row.kind == Kind::month && calendar == Calendar::day360) {
        units.numerator = 30 * day;
        units.denominator = 1;
        return units;
    }
    if (row.kind == Kind::fixed || (row.kind == Kind::commonYear && calendar == Calendar::noLeap))
        return units;
    if (longUnits == LongUnits::refused)
        return Refusal{"the unit " + inQuotes(name) + " has no certain length in calendar " +
                       std::string(calendarName(calendar)) +
                       "; its values can be taken as UDUNITS lengths or as steps of the calendar"};
    if (longUnits == LongUnits::calendarSteps)
        units.months = row.kind == Kind::month ? 1 : row.kind == Kind::year ? 12 : 0;
    return units;
}

} // namespace

bool isTimeUnits(std::string_view text)
{
    const Pieces pieces = split(text);
    return !pieces.shift.empty() && !pieces.unit.empty() &&
           (lowered(pieces.shift) == "since" || findUnit(pieces.unit) != nullptr);
}

Outcome<TimeUnits> parseTimeUnits(std::string_view text, Calendar calendar, LongUnits longUnits)
{
    const std::string name = inQuotes(trimmed(text));
    const Pieces pieces = split(text);
    const UnitRow* row = findUnit(pieces.unit);
    if (row == nullptr)
        return Refusal{name + " does not begin with a unit of time"};
    if (pieces.shift.empty())
        return Refusal{name + " has no \"since\" behind its unit"};
    if (pieces.reference.empty())
        return Refusal{name + " has no reference date"};

    const auto written = readWrittenDate(pieces.reference);
    if (!written)
        return Refusal{"the reference date " + written.reason()};
    const auto reference = momentOfWrittenDate(calendar, *written);
    if (!reference)
        return Refusal{name + " has an invalid reference date: " + reference.reason()};

    const auto length = lengthOf(*row, pieces.unit, calendar, longUnits);
    if (!length)
        return length;
    TimeUnits units = *length;
    units.reference = *reference;
    return units;
}

} // namespace Ovard::gridio::cf
