// SPDX-License-Identifier: BSD-3-Clause
// Accumulators of sums, extremes and the like. NaNs are left out. Sums keep the rounding errors of
// their additions, so that the order of the values affects only the last bit.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace Ovard::gridio {

// weight is the sum of the weights of values, by which parts of a mean are combined.
enum class Reduction { mean, sum, minimum, maximum, deviation, variance, count, median, weight };

// Accumulates a fixed number of results, whose indices are not checked.
class Accumulator {
public:
    virtual ~Accumulator() = default;
    Accumulator(const Accumulator&) = delete;
    Accumulator& operator=(const Accumulator&) = delete;

    // Each value to a result of its own: first, first + 1, ...
    virtual void addToEach(const double* values, std::size_t count, std::size_t first) = 0;

    // All values to one result.
    virtual void addToOne(const double* values, std::size_t count, std::size_t result) = 0;

    // Each value, with its weight, to the result first + offset. Values with a negative offset are
    // left out.
    virtual void addScattered(const double* values, const double* weights,
                              const std::ptrdiff_t* offsets, std::size_t count,
                              std::size_t first) = 0;

    // NaN for results without values.
    virtual double result(std::size_t index) const = 0;

    // How many values contributed to a result.
    virtual double count(std::size_t index) const = 0;

protected:
    Accumulator() = default;
};

// isWeighted: whether values have weights; then only addScattered may be called. Not for medians. A
// variance is divided by the number of values less 1 or, with weights, by their sum.
std::unique_ptr<Accumulator> makeAccumulator(Reduction reduction, std::size_t results,
                                             bool isWeighted);

} // namespace Ovard::gridio
