// SPDX-License-Identifier: BSD-3-Clause
// Lossless conversion of numbers from one type to another.
#pragma once

#include <cmath>
#include <limits>
#include <string>
#include <type_traits>

namespace Ovard::gridio {

// One more than the largest value of an integer type, which every floating type holds exactly.
template <class Integer, class Floating> constexpr Floating aboveLargest()
{
    return static_cast<Floating>(std::numeric_limits<Integer>::max() / 2 + 1) * 2;
}

// Whether value, which may be any number, is in the range of the integer type.
template <class Integer, class Floating> bool isInRange(Floating value)
{
    return value >= static_cast<Floating>(std::numeric_limits<Integer>::lowest()) &&
           value < aboveLargest<Integer, Floating>();
}

// Stores value in target if its type can represent value exactly, and returns whether it can. NaN
// and infinities are representable in every floating type.
template <class Target, class Source> bool convertExactly(Source value, Target& target)
{
    if constexpr (std::is_same_v<Target, Source>) {
        target = value;
        return true;
    } else if constexpr (std::is_floating_point_v<Source> && std::is_integral_v<Target>) {
        if (!isInRange<Target>(value) || std::trunc(value) != value)
            return false;
        target = static_cast<Target>(value);
        return true;
    } else if constexpr (std::is_floating_point_v<Source>) {
        const bool isFinite = std::isfinite(value);
        if (isFinite && std::abs(static_cast<double>(value)) >
                            static_cast<double>(std::numeric_limits<Target>::max()))
            return false;
        target = static_cast<Target>(value);
        return !isFinite || static_cast<Source>(target) == value;
    } else if constexpr (std::is_floating_point_v<Target>) {
        target = static_cast<Target>(value);
        return isInRange<Source>(target) && static_cast<Source>(target) == value;
    } else {
        target = static_cast<Target>(value);
        return static_cast<Source>(target) == value && (target < Target{}) == (value < Source{});
    }
}

// A text that identifies this number exactly: "0.1", "300".
template <class Number> std::string numberText(Number value);

} // namespace Ovard::gridio
