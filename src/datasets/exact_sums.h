// SPDX-License-Identifier: BSD-3-Clause
// Additions and products whose rounding errors are kept: what a double cannot hold of a result is
// in a second one.
#pragma once

#include <cmath>

namespace Ovard::gridio {

struct TwoDoubles {
    double high = 0;
    double low = 0;

    // The double nearest to both, give or take its last bit.
    double value() const { return std::isfinite(high) ? high + low : high; }
};

// Adds a number to a sum.
inline void addExactly(double& high, double& low, double number)
{
    const double sum = high + number;
    const double part = sum - high;
    low += (high - (sum - part)) + (number - part);
    high = sum;
}

inline void addExactly(TwoDoubles& sum, const TwoDoubles& number)
{
    addExactly(sum.high, sum.low, number.high);
    sum.low += number.low;
}

// A double as two of half its digits, whose products are exact.
inline TwoDoubles halves(double number)
{
    const double scaled = number * 134217729.0; // 2^27 + 1
    const double high = scaled - (scaled - number);
    return {high, number - high};
}

inline TwoDoubles multiplyExactly(double a, double b)
{
    const double product = a * b;
    const TwoDoubles x = halves(a);
    const TwoDoubles y = halves(b);
    const double error =
        ((x.high * y.high - product) + x.high * y.low + x.low * y.high) + x.low * y.low;
    return {product, error};
}

inline TwoDoubles multiply(const TwoDoubles& a, double b)
{
    const TwoDoubles product = multiplyExactly(a.high, b);
    return {product.high, product.low + a.low * b};
}

// a - b, where the two may be almost equal.
inline double difference(const TwoDoubles& a, const TwoDoubles& b)
{
    TwoDoubles result = a;
    addExactly(result, {-b.high, -b.low});
    return result.value();
}

} // namespace Ovard::gridio
