// SPDX-License-Identifier: BSD-3-Clause
// Accumulators of medians. Of an even number of values the median is the mean of the two in the
// middle.
#pragma once

#include "datasets/accumulators.h"

#include <cstdint>

namespace Ovard::gridio {

// Passes values to Taker::add one by one, each with its result. They have no weights.
template <class Taker> class OneByOne : public Accumulator {
public:
    void addToEach(const double* values, std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i)
            taker().add(values[i], first + i);
    }

    void addToOne(const double* values, std::size_t count, std::size_t result) override
    {
        for (std::size_t i = 0; i < count; ++i)
            taker().add(values[i], result);
    }

    void addScattered(const double* values, const double*, const std::ptrdiff_t* offsets,
                      std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i)
            if (offsets[i] >= 0)
                taker().add(values[i], first + static_cast<std::size_t>(offsets[i]));
    }

private:
    Taker& taker() { return static_cast<Taker&>(*this); }
};

// Keeps the values of each result.
class Collector : public OneByOne<Collector> {
public:
    explicit Collector(std::size_t results) : values_(results) {}

    void add(double value, std::size_t result);
    double result(std::size_t index) const override;
    double count(std::size_t index) const override;

private:
    std::vector<std::vector<double>> values_;
};

// Keeps counts of values, whose number does not matter: all values are passed to it several times,
// and in each pass some more bits of the two in the middle become known.
class Selector : public OneByOne<Selector> {
public:
    static constexpr int passes = 6;

    // Memory for each result.
    static constexpr std::size_t bytes = 2 * 2048 * sizeof(std::uint64_t);

    explicit Selector(std::size_t results);

    // Called after each pass.
    void endPass();

    void add(double value, std::size_t result);
    double result(std::size_t index) const override;
    double count(std::size_t index) const override;

private:
    // One of the two values: the bits that are known, and its place among the values that share
    // them.
    struct Sought {
        std::uint64_t known = 0;
        std::uint64_t place = 0;
    };

    int shift() const;

    int pass_ = 0;
    std::vector<Sought> sought_;         // two for each result
    std::vector<std::uint64_t> buckets_; // for each of them: how many values go on with which bits
    std::vector<double> counts_;
};

} // namespace Ovard::gridio
