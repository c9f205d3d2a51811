// SPDX-License-Identifier: BSD-3-Clause
// Times of a file as day numbers, parts and texts of the interpreter, and back.
#include "cf/ascii_text.h"
#include "cf/time_columns.h"
#include "convert/argument_readers.h"
#include "convert/numeric_class.h"
#include "convert/result_builders.h"
#include "dataset_error_identifiers.h"
#include "datasets/structure_result.h"
#include "datasets/time_conversion.h"
#include "datasets/time_numbers.h"
#include "operation_entry.h"
#include "types/exact_numbers.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ovard::gridio::datasetOperations {
namespace {

[[noreturn]] void raiseUnreadable(const char* kind, const std::string& text,
                                  const std::string& reason)
{
    vxErrMsgId(dataset::unreadableTime(kind, cf::inQuotes(text), reason));
}

// From the arguments units, calendar and, as the fourth of all, how long units are taken.
cf::TimeUnits readUnits(const vxArray* args[], int nargs)
{
    const std::string units = readText(args[1], "units");
    const std::string calendar = readText(args[2], "calendar");
    return timeUnitsOf({units, calendar},
                       nargs > 3 ? readLongUnits(args[3]) : cf::LongUnits::refused);
}

// Raises unrepresentableTime for the first element that could not be converted.
void requireAll(const cf::Misses& misses, const TimeValues& values, const std::string& reason)
{
    if (misses.count > 0)
        vxErrMsgId(dataset::unrepresentableTime(static_cast<long>(misses.first + 1),
                                                values.text(misses.first), reason));
}

double* numbersOf(vxArray* array) { return static_cast<double*>(vxGetWritableData(array)); }

// Why a value has no datenum: if it is in range, because of the calendar.
std::string datenumReason(const cf::TimeUnits& units, const TimeValues& values, std::size_t first)
{
    std::vector<cf::Moment> moments(values.count());
    const cf::Misses misses = values.toMoments(units, moments.data());
    const bool isInRange = misses.count == 0 || misses.first > first;
    return isInRange ? cf::noDatenumReason(units.calendar) : cf::momentRangeReason();
}

// Rows of parts, with six columns or, for the beginning of days, three.
class PartRows {
public:
    explicit PartRows(const vxArray* parts) : numbers_(parts, "parts")
    {
        const std::size_t* dims = vxGetDimensions(parts);
        rows_ = dims[0];
        columns_ = dims[1];
        if (vxGetNumberOfDimensions(parts) != 2 || (columns_ != 6 && columns_ != 3) ||
            numbers_.doubles().size() != rows_ * columns_)
            vxErrMsgId(dataset::badArgument(
                "parts", "a matrix of doubles with the columns year, month, day and, if you like, "
                         "hour, minute, second"));
    }

    std::size_t count() const { return rows_; }

    // notATime for a row with a NaN. Raises unrepresentableTime for a row that is not a time.
    cf::Moment momentOf(std::size_t row, cf::Calendar calendar) const
    {
        for (std::size_t column = 0; column < columns_; ++column)
            if (std::isnan(at(row, column)))
                return cf::notATime;
        const double seconds = columns_ == 6 ? at(row, 5) : 0;
        const double whole = std::floor(seconds);
        const double fraction = std::nearbyint((seconds - whole) * 1e6);
        const cf::Parts parts{{static_cast<std::int64_t>(integer(row, 0, at(row, 0))),
                               static_cast<int>(integer(row, 1, at(row, 1))),
                               static_cast<int>(integer(row, 2, at(row, 2)))},
                              columns_ == 6 ? static_cast<int>(integer(row, 3, at(row, 3))) : 0,
                              columns_ == 6 ? static_cast<int>(integer(row, 4, at(row, 4))) : 0,
                              static_cast<int>(integer(row, 5, whole)),
                              0};
        const auto moment = cf::momentOfParts(calendar, parts);
        if (!moment)
            raise(row, moment.reason());
        cf::Moment result = 0;
        if (__builtin_add_overflow(*moment, static_cast<std::int64_t>(fraction), &result))
            raise(row, cf::momentRangeReason());
        return result;
    }

private:
    double at(std::size_t row, std::size_t column) const
    {
        return numbers_.doubles()[column * rows_ + row];
    }

    double integer(std::size_t row, std::size_t column, double value) const
    {
        static constexpr const char* names[] = {"year", "month", "day", "hour", "minute", "second"};
        const double most = column == 0 ? 1e15 : 1e9;
        if (std::trunc(value) != value || std::abs(value) > most)
            raise(row, std::string("its ") + names[column] + " is not a whole number in range");
        return value;
    }

    [[noreturn]] void raise(std::size_t row, const std::string& reason) const
    {
        std::string shown = "[";
        for (std::size_t column = 0; column < columns_; ++column)
            shown += (column == 0 ? "" : " ") + numberText(at(row, column));
        vxErrMsgId(dataset::unrepresentableTime(static_cast<long>(row + 1), shown + "]", reason));
    }

    TimeValues numbers_;
    std::size_t rows_;
    std::size_t columns_;
};

} // namespace

void timesToDatenum(int, vxArray* results[], int nargs, const vxArray* args[],
                    const OperationEntry*)
{
    const TimeValues values(args[0], "values");
    const cf::TimeUnits units = readUnits(args, nargs);

    results[0] = values.createLike();
    const cf::Misses misses = values.toDatenum(units, numbersOf(results[0]));
    if (misses.count > 0)
        requireAll(misses, values, datenumReason(units, values, misses.first));
}

void timesToParts(int, vxArray* results[], int nargs, const vxArray* args[], const OperationEntry*)
{
    const TimeValues values(args[0], "values");
    const cf::TimeUnits units = readUnits(args, nargs);

    const std::size_t dims[] = {values.count(), 6};
    results[0] = vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    requireAll(values.toParts(units, numbersOf(results[0])), values, cf::momentRangeReason());
}

void timesToText(int, vxArray* results[], int nargs, const vxArray* args[], const OperationEntry*)
{
    const TimeValues values(args[0], "values");
    const cf::TimeUnits units = readUnits(args, nargs);

    std::vector<cf::Moment> moments(values.count());
    requireAll(values.toMoments(units, moments.data()), values, cf::momentRangeReason());
    const cf::Precision precision = cf::exactPrecision(moments.data(), moments.size());
    std::string text(
        cf::momentTextWidth(units.calendar, moments.data(), moments.size(), precision) + 1, '\0');
    results[0] = values.createCellsLike();
    for (std::size_t i = 0; i < moments.size(); ++i) {
        *cf::writeMoment(units.calendar, moments[i], precision, text.data()) = '\0';
        vxSetCell(results[0], i, textResult(text.c_str()));
    }
}

void partsToTimes(int, vxArray* results[], int nargs, const vxArray* args[], const OperationEntry*)
{
    const PartRows rows(args[0]);
    const cf::TimeUnits units = readUnits(args, nargs);

    std::vector<double> values(rows.count());
    for (std::size_t i = 0; i < rows.count(); ++i) {
        const cf::Moment moment = rows.momentOf(i, units.calendar);
        const auto value = moment == cf::notATime ? std::numeric_limits<double>::quiet_NaN()
                                                  : cf::valueOfMoment(units, moment);
        if (!value)
            vxErrMsgId(dataset::unrepresentableTime(
                static_cast<long>(i + 1),
                cf::momentText(units.calendar, moment, cf::Precision::microsecond),
                cf::momentRangeReason()));
        values[i] = *value;
    }
    results[0] = numberColumn(values);
}

void datenumToTimes(int, vxArray* results[], int nargs, const vxArray* args[],
                    const OperationEntry*)
{
    const TimeValues datenum(args[0], "datenum");
    const cf::TimeUnits units = readUnits(args, nargs);
    if (datenum.doubles().size() != datenum.count())
        vxErrMsgId(dataset::badArgument("datenum", "day numbers of class double"));

    results[0] = datenum.createLike();
    const cf::Misses misses = cf::datenumToValues(units, datenum.doubles().data(), datenum.count(),
                                                  numbersOf(results[0]));
    requireAll(misses, datenum, cf::noDatenumReason(units.calendar));
}

// Between units and calendars of files that are joined.
void timesToTimes(int, vxArray* results[], int, const vxArray* args[], const OperationEntry*)
{
    const TimeValues values(args[0], "values");
    const TimeScale from{readText(args[1], "units"), readText(args[2], "calendar")};
    const TimeScale to{readText(args[3], "units"), readText(args[4], "calendar")};
    const TimeConversion conversion(from, to, readLongUnits(args[5]));
    if (values.doubles().size() != values.count())
        vxErrMsgId(dataset::badArgument("values", "times of class double"));

    results[0] = values.createLike();
    std::copy(values.doubles().begin(), values.doubles().end(), numbersOf(results[0]));
    conversion.apply(numbersOf(results[0]), values.count());
}

// A day or more is a period; a text with a time of day names that moment.
void periodToTimes(int, vxArray* results[], int nargs, const vxArray* args[], const OperationEntry*)
{
    const std::string text = readText(args[0], "period");
    const cf::TimeUnits units = readUnits(args, nargs);

    const auto period = cf::parsePeriod(text, units.calendar);
    if (!period)
        raiseUnreadable("period", text, period.reason());
    const bool isPeriod = period->precision <= cf::Precision::day;
    const auto begin = cf::valueOfMoment(units, period->begin);
    const auto end = cf::valueOfMoment(units, isPeriod ? period->end : period->begin);
    if (!begin || !end)
        raiseUnreadable("period", text, cf::momentRangeReason());
    results[0] = numberRow({*begin, *end});
    results[1] = flagResult(isPeriod);
}

} // namespace Ovard::gridio::datasetOperations
