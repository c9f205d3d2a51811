// SPDX-License-Identifier: BSD-3-Clause
#include "types/exact_numbers.h"

#include <cstdint>
#include <cstdio>
#include <cstdlib>

namespace Ovard::gridio {
namespace {

template <class Floating> std::string shortText(Floating value)
{
    using Limits = std::numeric_limits<Floating>;
    char text[40] = "";
    std::snprintf(text, sizeof text, "%.*g", Limits::digits10, static_cast<double>(value));
    if (static_cast<Floating>(std::strtod(text, nullptr)) != value)
        std::snprintf(text, sizeof text, "%.*g", Limits::max_digits10, static_cast<double>(value));
    return text;
}

} // namespace

template <class Number> std::string numberText(Number value)
{
    if constexpr (std::is_floating_point_v<Number>) {
        if (std::isnan(value))
            return "NaN";
        if (std::isinf(value))
            return value > 0 ? "Inf" : "-Inf";
    }
    if constexpr (std::is_floating_point_v<Number>)
        return shortText(value);
    else
        return std::to_string(value);
}

template std::string numberText(double);
template std::string numberText(float);
template std::string numberText(std::int8_t);
template std::string numberText(std::uint8_t);
template std::string numberText(std::int16_t);
template std::string numberText(std::uint16_t);
template std::string numberText(std::int32_t);
template std::string numberText(std::uint32_t);
template std::string numberText(std::int64_t);
template std::string numberText(std::uint64_t);

} // namespace Ovard::gridio
