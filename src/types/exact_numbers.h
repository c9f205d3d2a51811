// SPDX-License-Identifier: BSD-3-Clause
// Numbers of one type as those of another, without any loss.
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

// Whether value, of which any may be given, lies in the range of the integers.
template <class Integer, class Floating> bool isInRange(Floating value)
{
    return value >= static_cast<Floating>(std::numeric_limits<Integer>::lowest()) &&
           value < aboveLargest<Integer, Floating>();
}

// Stores value in target if target has a value that equals it, and returns whether it has. A NaN is
// one in every floating type, and an infinity stays what it is.
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

// A text that stands for this number and no other: "0.1", "300".
template <class Number> std::string numberText(Number value);

} // namespace Ovard::gridio
