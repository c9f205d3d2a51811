// SPDX-License-Identifier: BSD-3-Clause
// Range-checked conversion of one number, for scalar arguments and index vectors.
#pragma once

#include <boost/numeric/conversion/cast.hpp>

#include <cmath>
#include <type_traits>

namespace Ovard::gridio {

// value as a Target. A value out of range throws boost::numeric::negative_overflow or
// positive_overflow, which the entry point reports as argumentOutOfBounds.
//  - Floating to integer: truncated toward zero. A value is out of range at or below (lowest - 1)
//  and at or above
//    (highest + 1), both computed in the floating type and so rounded to it: deliberately, the
//    lowest int64 fails as a double, and the lowest int32 as a single, although both could be
//    represented. NaN is out of range.
//  - Integer to integer: exact.
//  - Double to float: out of range beyond the largest finite float, infinity included; NaN passes.
//  - To double, and from an integer to float: never fails, rounds to nearest.
template <class Target, class Source> Target convertChecked(Source value)
{
    if constexpr (std::is_integral_v<Target> && std::is_floating_point_v<Source>) {
        if (std::isnan(value))
            throw boost::numeric::bad_numeric_cast();
    }
    if constexpr (std::is_floating_point_v<Target> &&
                  (std::is_integral_v<Source> || sizeof(Target) >= sizeof(Source)))
        return static_cast<Target>(value);
    else
        return boost::numeric::converter<Target, Source>::convert(value);
}

} // namespace Ovard::gridio
