// SPDX-License-Identifier: BSD-3-Clause
#include "cf/time_values.h"

#include "cf/floor_division.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ovard::gridio::cf {
namespace {

constexpr double largestValue = 9'223'372'036'854'774'784.0; // the last double below 2^63

std::optional<std::int64_t> sum(std::int64_t a, std::int64_t b)
{
    std::int64_t result = 0;
    if (__builtin_add_overflow(a, b, &result))
        return std::nullopt;
    return result;
}

std::optional<std::int64_t> product(std::int64_t a, std::int64_t b)
{
    std::int64_t result = 0;
    if (__builtin_mul_overflow(a, b, &result))
        return std::nullopt;
    return result;
}

std::optional<Moment> momentAfter(Moment reference, std::optional<std::int64_t> microseconds)
{
    const auto moment = microseconds ? sum(reference, *microseconds) : std::nullopt;
    return moment == notATime ? std::nullopt : moment;
}

// base + x + error rounded to the nearest integer, of two the even one; x + error is a number that
// x rounds, and |x| is less than 2^52.
std::optional<std::int64_t> roundedSum(std::int64_t base, double x, double error)
{
    const double below = std::floor(x);
    const double rest = x - below;
    auto whole = static_cast<std::int64_t>(below);
    const bool isOdd = ((base ^ whole) & 1) != 0;
    if (rest > 0.5 || (rest == 0.5 && (error > 0 || (error == 0 && isOdd))))
        ++whole;
    return sum(base, whole);
}

// whole + fraction units, the fraction with the sign of whole, in microseconds.
std::optional<std::int64_t> microsecondsOf(const TimeUnits& units, std::int64_t whole,
                                           double fraction)
{
    const auto numerator = static_cast<double>(units.numerator);
    if (units.denominator == 1) {
        const auto base = product(whole, units.numerator);
        if (!base || fraction == 0)
            return base;
        const double rest = fraction * numerator;
        return roundedSum(*base, rest, std::fma(fraction, numerator, -rest));
    }
    const std::int64_t over = whole % units.denominator * units.numerator;
    const auto base = product(whole / units.denominator, units.numerator);
    const auto start = base ? sum(*base, over / units.denominator) : std::nullopt;
    if (!start)
        return std::nullopt;
    const double rest = static_cast<double>(over % units.denominator) + fraction * numerator;
    return roundedSum(*start, rest / static_cast<double>(units.denominator), 0);
}

// The reference date advanced by so many steps of the calendar.
std::optional<Moment> momentOfStep(const TimeUnits& units, std::int64_t steps)
{
    const Parts reference = partsOfMoment(units.calendar, units.reference);
    const auto later = product(steps, units.months);
    const auto months =
        later ? sum(*later, reference.date.year * 12 + reference.date.month - 1) : std::nullopt;
    if (!months)
        return std::nullopt;

    Date date{floorDivide(*months, 12), static_cast<int>(floorRemainder(*months, 12)) + 1, 1};
    if (!dateExists(units.calendar, date))
        return std::nullopt;
    date.day = std::min(reference.date.day, lastDayOfMonth(units.calendar, date.year, date.month));
    // The days that the standard calendar leaves out are followed by a day that exists.
    while (!dateExists(units.calendar, date))
        ++date.day;
    return momentOfDay(dayNumber(units.calendar, date),
                       floorRemainder(units.reference, microsecondsPerDay));
}

struct Step {
    Moment begin;
    double length; // microseconds to the next one
};

std::optional<Step> stepAt(const TimeUnits& units, std::int64_t number)
{
    const auto begin = momentOfStep(units, number);
    const auto next = momentOfStep(units, number + 1);
    if (!begin || !next)
        return std::nullopt;
    return Step{*begin, static_cast<double>(*next - *begin)};
}

std::optional<Moment> momentOfSteps(const TimeUnits& units, double value)
{
    const double below = std::floor(value);
    const auto step = stepAt(units, static_cast<std::int64_t>(below));
    if (!step)
        return std::nullopt;
    return momentAfter(step->begin, roundedSum(0, (value - below) * step->length, 0));
}

// The number of the last step that does not begin after the moment.
std::optional<std::int64_t> lastStepUpTo(const TimeUnits& units, Moment moment)
{
    const auto monthsOf = [&](Moment m) {
        const Date date = partsOfMoment(units.calendar, m).date;
        return date.year * 12 + date.month;
    };
    const std::int64_t number =
        floorDivide(monthsOf(moment) - monthsOf(units.reference), units.months);
    const auto begin = momentOfStep(units, number);
    if (!begin)
        return std::nullopt;
    return *begin > moment ? number - 1 : number;
}

std::optional<double> stepsOfMoment(const TimeUnits& units, Moment moment)
{
    const auto number = lastStepUpTo(units, moment);
    const auto step = number ? stepAt(units, *number) : std::nullopt;
    if (!step)
        return std::nullopt;
    return static_cast<double>(*number) + static_cast<double>(moment - step->begin) / step->length;
}

// whole + rest / divisor as the nearest double, where 0 <= rest < divisor < 2^53.
double quotient(std::int64_t whole, std::int64_t rest, std::int64_t divisor)
{
    constexpr std::int64_t exact = std::int64_t{1} << 53;
    const auto number = product(whole, divisor);
    const auto dividend = number ? sum(*number, rest) : std::nullopt;
    if (dividend && *dividend >= -exact && *dividend <= exact)
        return static_cast<double>(*dividend) / static_cast<double>(divisor);

    // Binary digits are appended until there are two more than a double holds; the last one then
    // represents all that follow.
    int appended = 0;
    while (whole > -2 * exact && whole < 2 * exact) {
        rest *= 2;
        whole = whole * 2 + rest / divisor;
        rest %= divisor;
        ++appended;
    }
    return std::ldexp(static_cast<double>(whole | (rest != 0 ? 1 : 0)), -appended);
}

// The moment as whole units since the reference and a rest, 0 <= rest < numerator.
struct Count {
    std::int64_t whole;
    std::int64_t rest;
};

std::optional<Count> countOf(const TimeUnits& units, Moment moment)
{
    std::int64_t since = 0;
    if (__builtin_sub_overflow(moment, units.reference, &since))
        return std::nullopt;
    if (units.denominator == 1)
        return Count{floorDivide(since, units.numerator), floorRemainder(since, units.numerator)};
    const auto whole = product(floorDivide(since, units.numerator), units.denominator);
    const std::int64_t over = floorRemainder(since, units.numerator) * units.denominator;
    const auto total = whole ? sum(*whole, over / units.numerator) : std::nullopt;
    if (!total)
        return std::nullopt;
    return Count{*total, over % units.numerator};
}

} // namespace

std::optional<Moment> momentOfValue(const TimeUnits& units, double value, Rounding rounding)
{
    if (!std::isfinite(value))
        return notATime;
    if (std::fabs(value) > largestValue)
        return std::nullopt;

    const auto whole = static_cast<std::int64_t>(value);
    const auto moment =
        units.months != 0
            ? momentOfSteps(units, value)
            : momentAfter(units.reference,
                          microsecondsOf(units, whole, value - static_cast<double>(whole)));
    if (!moment || rounding == Rounding::toMicrosecond)
        return moment;

    const double epsilon = rounding == Rounding::withinSingle
                               ? std::numeric_limits<float>::epsilon()
                               : std::numeric_limits<double>::epsilon();
    const double unit =
        units.months != 0
            ? 30.0 * static_cast<double>(microsecondsPerDay) * units.months
            : static_cast<double>(units.numerator) / static_cast<double>(units.denominator);
    return roundestMoment(*moment, std::fabs(value) * epsilon * unit);
}

std::optional<Moment> momentOfValue(const TimeUnits& units, std::int64_t value)
{
    return units.months != 0 ? momentOfStep(units, value)
                             : momentAfter(units.reference, microsecondsOf(units, value, 0));
}

std::optional<double> valueOfMoment(const TimeUnits& units, Moment moment)
{
    if (units.months != 0)
        return stepsOfMoment(units, moment);
    const auto count = countOf(units, moment);
    if (!count)
        return std::nullopt;
    return quotient(count->whole, count->rest, units.numerator);
}

std::optional<std::int64_t> wholeValueOfMoment(const TimeUnits& units, Moment moment)
{
    if (units.months != 0) {
        const auto number = lastStepUpTo(units, moment);
        return number && momentOfStep(units, *number) == moment ? number : std::nullopt;
    }
    const auto count = countOf(units, moment);
    if (!count || count->rest != 0)
        return std::nullopt;
    return count->whole;
}

} // namespace Ovard::gridio::cf
