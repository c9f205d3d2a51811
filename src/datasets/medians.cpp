// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/medians.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace Ovard::gridio {
namespace {

constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr int bitsOfPass = 11;
constexpr std::uint64_t bucketCount = std::uint64_t{1} << bitsOfPass;
constexpr std::uint64_t signBit = std::uint64_t{1} << 63;

double middleOf(double lower, double upper)
{
    return lower == upper ? lower : lower / 2 + upper / 2;
}

// Numbers in the order of the doubles.
std::uint64_t keyOf(double value)
{
    value += 0.0; // -0 is 0
    std::uint64_t bits = 0;
    std::memcpy(&bits, &value, sizeof bits);
    return (bits & signBit) != 0 ? ~bits : bits | signBit;
}

double valueOf(std::uint64_t key)
{
    const std::uint64_t bits = (key & signBit) != 0 ? key & ~signBit : ~key;
    double value = 0;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace

double Collector::result(std::size_t index) const
{
    std::vector<double> values = values_[index];
    if (values.empty())
        return notANumber;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    if (values.size() % 2 == 1)
        return *middle;
    return middleOf(*std::max_element(values.begin(), middle), *middle);
}

double Collector::count(std::size_t index) const
{
    return static_cast<double>(values_[index].size());
}

void Collector::add(double value, std::size_t result)
{
    if (value == value)
        values_[result].push_back(value);
}

Selector::Selector(std::size_t results)
    : sought_(2 * results), buckets_(2 * results * bucketCount), counts_(results)
{
}

// 64 bits are 6 times 11, but for 2 that are missing in the last pass.
int Selector::shift() const { return std::max(64 - bitsOfPass * (pass_ + 1), 0); }

void Selector::add(double value, std::size_t result)
{
    if (value != value)
        return;
    const std::uint64_t key = keyOf(value);
    const int above = 64 - bitsOfPass * pass_; // bits that are not known yet
    if (pass_ == 0)
        counts_[result] += 1;
    for (std::size_t which = 2 * result; which < 2 * result + 2; ++which)
        if (pass_ == 0 || key >> above == sought_[which].known)
            ++buckets_[which * bucketCount + (key >> shift() & (bucketCount - 1))];
}

void Selector::endPass()
{
    const int bits = 64 - bitsOfPass * pass_ - shift();
    for (std::size_t which = 0; which < sought_.size(); ++which) {
        Sought& one = sought_[which];
        const auto total = static_cast<std::uint64_t>(counts_[which / 2]);
        if (total == 0)
            continue;
        if (pass_ == 0)
            one.place = which % 2 == 0 ? (total - 1) / 2 : total / 2;
        // In the last pass the buckets count bits of the pass before as well.
        const std::uint64_t ahead = bits < bitsOfPass ? one.known << bits & (bucketCount - 1) : 0;
        const std::uint64_t* buckets = buckets_.data() + which * bucketCount + ahead;
        std::uint64_t bucket = 0;
        while (one.place >= buckets[bucket])
            one.place -= buckets[bucket++];
        one.known = one.known << bits | bucket;
    }
    std::fill(buckets_.begin(), buckets_.end(), 0);
    ++pass_;
}

double Selector::result(std::size_t index) const
{
    if (counts_[index] == 0)
        return notANumber;
    return middleOf(valueOf(sought_[2 * index].known), valueOf(sought_[2 * index + 1].known));
}

double Selector::count(std::size_t index) const { return counts_[index]; }

} // namespace Ovard::gridio
