// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/accumulators.h"

#include "datasets/exact_sums.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace Ovard::gridio {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

using Numbers = std::vector<double>;

// Independent sums, so that additions do not wait for each other.
constexpr std::size_t lanes = 8;

// Sums, each with its rounding errors.
struct Sums {
    explicit Sums(std::size_t results) : high(results), low(results) {}

    TwoDoubles at(std::size_t index) const { return {high[index], low[index]}; }
    void add(std::size_t index, const TwoDoubles& number)
    {
        addExactly(high[index], low[index], number.high);
        low[index] += number.low;
    }

    Numbers high;
    Numbers low;
};

// The loops over values, for an accumulator with add(result, value) for values other than NaN and
// add(result, value, weight).
template <class Own> class Loops : public Accumulator {
public:
    explicit Loops(std::size_t results) : counts_(results) {}

    void addToEach(const double* values, std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i)
            addOne(values[i], first + i);
    }

    void addToOne(const double* values, std::size_t count, std::size_t result) override
    {
        for (std::size_t i = 0; i < count; ++i)
            addOne(values[i], result);
    }

    void addScattered(const double* values, const double* weights, const std::ptrdiff_t* offsets,
                      std::size_t count, std::size_t first) override
    {
        for (std::size_t i = 0; i < count; ++i) {
            if (offsets[i] < 0 || std::isnan(values[i]))
                continue;
            const std::size_t result = first + static_cast<std::size_t>(offsets[i]);
            counts_[result] += 1;
            if (weights == nullptr)
                own().add(result, values[i]);
            else
                own().add(result, values[i], weights[i]);
        }
    }

    double count(std::size_t index) const override { return counts_[index]; }

protected:
    Numbers counts_;

private:
    Own& own() { return static_cast<Own&>(*this); }

    void addOne(double value, std::size_t result)
    {
        if (std::isnan(value))
            return;
        counts_[result] += 1;
        own().add(result, value);
    }
};

class SumAccumulator : public Loops<SumAccumulator> {
public:
    SumAccumulator(std::size_t results, bool isMean, bool isWeighted)
        : Loops(results), isMean_(isMean), isWeighted_(isWeighted), sums_(results),
          weights_(isWeighted ? results : 0)
    {
    }

    // Without a branch for a value.
    void addToEach(const double* __restrict values, std::size_t count, std::size_t first) override
    {
        double* __restrict high = sums_.high.data() + first;
        double* __restrict low = sums_.low.data() + first;
        double* __restrict counts = counts_.data() + first;
        for (std::size_t i = 0; i < count; ++i) {
            const bool isValue = values[i] == values[i];
            addExactly(high[i], low[i], isValue ? values[i] : 0.0);
            counts[i] += isValue ? 1.0 : 0.0;
        }
    }

    void addToOne(const double* values, std::size_t count, std::size_t result) override
    {
        double high[lanes] = {};
        double low[lanes] = {};
        double counts[lanes] = {};
        const std::size_t whole = count - count % lanes;
        for (std::size_t i = 0; i < whole; i += lanes) {
            for (std::size_t lane = 0; lane < lanes; ++lane) {
                const double value = values[i + lane];
                const bool isValue = value == value;
                addExactly(high[lane], low[lane], isValue ? value : 0.0);
                counts[lane] += isValue ? 1.0 : 0.0;
            }
        }
        for (std::size_t lane = 0; lane < lanes; ++lane) {
            sums_.add(result, {high[lane], low[lane]});
            counts_[result] += counts[lane];
        }
        Loops::addToOne(values + whole, count - whole, result);
    }

    void add(std::size_t result, double value) { sums_.add(result, {value, 0}); }
    void add(std::size_t result, double value, double weight)
    {
        sums_.add(result, multiplyExactly(value, weight));
        weights_.add(result, {weight, 0});
    }

    double result(std::size_t index) const override
    {
        if (counts_[index] == 0)
            return notANumber;
        const double sum = sums_.at(index).value();
        if (!isMean_)
            return sum;
        return sum / (isWeighted_ ? weights_.at(index).value() : counts_[index]);
    }

private:
    bool isMean_;
    bool isWeighted_;
    Sums sums_;
    Sums weights_;
};

// The sums of values and squares keep their rounding errors, so that their difference is exact even
// where the mean is much larger than the deviation.
class SpreadAccumulator : public Loops<SpreadAccumulator> {
public:
    SpreadAccumulator(std::size_t results, bool isDeviation, bool isWeighted)
        : Loops(results), isDeviation_(isDeviation), isWeighted_(isWeighted), sums_(results),
          squares_(results), weights_(isWeighted ? results : 0)
    {
    }

    void add(std::size_t result, double value)
    {
        sums_.add(result, {value, 0});
        squares_.add(result, multiplyExactly(value, value));
    }
    void add(std::size_t result, double value, double weight)
    {
        const TwoDoubles weighted = multiplyExactly(value, weight);
        sums_.add(result, weighted);
        squares_.add(result, multiply(weighted, value));
        weights_.add(result, {weight, 0});
    }

    double result(std::size_t index) const override
    {
        if (counts_[index] == 0)
            return notANumber;
        const TwoDoubles sum = normalised(sums_.at(index));
        const double total = isWeighted_ ? weights_.at(index).value() : counts_[index];
        const double spread = difference(squares_.at(index), squareOverTotal(sum, total));
        const double divisor = isWeighted_ ? total : std::max(total - 1, 1.0);
        const double variance = std::isnan(spread) ? spread : std::max(spread, 0.0) / divisor;
        return isDeviation_ ? std::sqrt(variance) : variance;
    }

private:
    // sum * sum / total
    static TwoDoubles squareOverTotal(const TwoDoubles& sum, double total)
    {
        TwoDoubles mean{sum.high / total, 0};
        const TwoDoubles back = multiplyExactly(mean.high, total);
        mean.low = ((sum.high - back.high) - back.low + sum.low) / total;
        TwoDoubles square = multiply(mean, sum.high);
        square.low += mean.high * sum.low;
        return square;
    }

    static TwoDoubles normalised(const TwoDoubles& sum)
    {
        TwoDoubles result;
        addExactly(result.high, result.low, sum.high);
        addExactly(result.high, result.low, sum.low);
        return result;
    }

    bool isDeviation_;
    bool isWeighted_;
    Sums sums_;
    Sums squares_;
    Sums weights_;
};

// sign 1 for the largest, -1 for the smallest.
template <int sign> class ExtremeAccumulator : public Loops<ExtremeAccumulator<sign>> {
    using Base = Loops<ExtremeAccumulator<sign>>;

public:
    explicit ExtremeAccumulator(std::size_t results)
        : Base(results), extremes_(results, -std::numeric_limits<double>::infinity())
    {
    }

    void addToEach(const double* __restrict values, std::size_t count, std::size_t first) override
    {
        double* __restrict extremes = extremes_.data() + first;
        double* __restrict counts = this->counts_.data() + first;
        for (std::size_t i = 0; i < count; ++i) {
            const double value = sign * values[i];
            extremes[i] = value > extremes[i] ? value : extremes[i];
            counts[i] += value == value ? 1.0 : 0.0;
        }
    }

    void add(std::size_t result, double value)
    {
        extremes_[result] = std::max(extremes_[result], sign * value);
    }
    void add(std::size_t result, double value, double) { add(result, value); }

    double result(std::size_t index) const override
    {
        return this->counts_[index] == 0 ? notANumber : sign * extremes_[index];
    }

private:
    Numbers extremes_;
};

class WeightAccumulator : public Loops<WeightAccumulator> {
public:
    explicit WeightAccumulator(std::size_t results) : Loops(results), sums_(results) {}

    void add(std::size_t result, double) { sums_.add(result, {1, 0}); }
    void add(std::size_t result, double, double weight) { sums_.add(result, {weight, 0}); }

    double result(std::size_t index) const override { return sums_.at(index).value(); }

private:
    Sums sums_;
};

class CountAccumulator : public Loops<CountAccumulator> {
public:
    using Loops::Loops;

    void add(std::size_t, double) {}
    void add(std::size_t, double, double) {}

    double result(std::size_t index) const override { return counts_[index]; }
};

} // namespace

std::unique_ptr<Accumulator> makeAccumulator(Reduction reduction, std::size_t results,
                                             bool isWeighted)
{
    switch (reduction) {
    case Reduction::mean:
    case Reduction::sum:
        return std::make_unique<SumAccumulator>(results, reduction == Reduction::mean, isWeighted);
    case Reduction::minimum:
        return std::make_unique<ExtremeAccumulator<-1>>(results);
    case Reduction::maximum:
        return std::make_unique<ExtremeAccumulator<1>>(results);
    case Reduction::deviation:
    case Reduction::variance:
        return std::make_unique<SpreadAccumulator>(results, reduction == Reduction::deviation,
                                                   isWeighted);
    case Reduction::weight:
        return std::make_unique<WeightAccumulator>(results);
    case Reduction::count:
    case Reduction::median:
        break;
    }
    return std::make_unique<CountAccumulator>(results);
}

} // namespace Ovard::gridio
