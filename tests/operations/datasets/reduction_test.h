// SPDX-License-Identifier: BSD-3-Clause
// A field of a made file, and what plain loops make of its reductions.
#pragma once

#include "tests/operations/datasets/dataset_test.h"
#include "tests/support/library_file.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <map>
#include <random>

namespace testsupport {

inline constexpr double gap = std::numeric_limits<double>::quiet_NaN();
using Lengths = std::vector<std::size_t>; // in the host's order
using Numbers = std::vector<double>;

// A block of a made variable, to be reduced by the module and by plain loops.
struct Task {
    std::string kind;
    Lengths start, count;
    std::vector<bool> isReduced;
    std::map<std::size_t, Numbers> bins;    // by dimension
    std::map<std::size_t, Numbers> weights; // by dimension
};

struct Expected {
    Lengths lengths;
    Numbers values;
    Numbers counts;
};

// In long double, two passes for spreads.
inline double reduced(const std::string& kind, Numbers values, const Numbers& weights,
                      bool isWeighted)
{
    const std::size_t n = values.size();
    if (kind == "count")
        return static_cast<double>(n);
    if (n == 0)
        return kind == "weight" ? 0 : gap;
    long double sum = 0;
    long double total = 0;
    for (std::size_t i = 0; i < n; ++i) {
        sum += static_cast<long double>(values[i]) * weights[i];
        total += weights[i];
    }
    long double spread = 0;
    for (std::size_t i = 0; i < n; ++i)
        spread += weights[i] * (values[i] - sum / total) * (values[i] - sum / total);
    const long double divisor = isWeighted ? total : std::max<long double>(total - 1, 1);
    if (kind == "median") {
        std::sort(values.begin(), values.end());
        return (values[(n - 1) / 2] + values[n / 2]) / 2;
    }
    const std::map<std::string, long double> results = {
        {"sum", sum},
        {"mean", sum / total},
        {"var", spread / divisor},
        {"std", std::sqrt(spread / divisor)},
        {"min", *std::min_element(values.begin(), values.end())},
        {"max", *std::max_element(values.begin(), values.end())},
        {"weight", total}};
    return static_cast<double>(results.at(kind));
}

class ReductionTest : public DatasetTest {
protected:
    Lengths lengths = {7, 5, 6};
    Numbers stored; // with gaps, in the host's order

    // A variable of doubles with gaps, far from zero, in chunks or not.
    int openField(bool isChunked)
    {
        std::mt19937 random(42);
        const std::string path = folder.file("field.nc");
        auto file = LibraryFile::create(path);
        int dimids[3];
        for (std::size_t i = 0; i < 3; ++i)
            require(nc_def_dim(file.ncid(), std::string(1, static_cast<char>('a' + i)).c_str(),
                               lengths[2 - i], &dimids[i]));
        int varid = 0;
        require(nc_def_var(file.ncid(), "v", NC_DOUBLE, 3, dimids, &varid));
        if (isChunked) {
            const std::size_t chunks[] = {4, 2, 3};
            require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, chunks));
            require(nc_def_var_deflate(file.ncid(), varid, 1, 1, 1));
        }
        const double missing = -1;
        require(nc_put_att_double(file.ncid(), varid, "missing_value", NC_DOUBLE, 1, &missing));
        stored.assign(lengths[0] * lengths[1] * lengths[2], 0);
        for (double& value : stored)
            value = random() % 5 == 0 ? -1 : 1e6 + static_cast<double>(random() % 1000) / 7;
        require(nc_put_var_double(file.ncid(), varid, stored.data()));
        file.close();
        std::replace(stored.begin(), stored.end(), -1.0, gap);
        return openFile("field.nc");
    }

    static Value rowOf(const Lengths& lengths)
    {
        return Value::row(Numbers(lengths.begin(), lengths.end()));
    }
    static Value cellsOf(const std::map<std::size_t, Numbers>& byDimension)
    {
        Values cells(3, Value::empty());
        for (const auto& [dimension, numbers] : byDimension)
            cells[dimension] = Value::row(numbers);
        return byDimension.empty() ? Value::empty() : Value::cell({1, 3}, cells);
    }

    Values reduce(int ncid, const Task& task)
    {
        return results("reduce",
                       {task.kind, ncid, 0, rowOf(task.start), rowOf(task.count), row({1, 1, 1}),
                        31, Value::logical({1, 3}, task.isReduced), cellsOf(task.bins),
                        cellsOf(task.weights)},
                       2);
    }

    Expected expected(const Task& task) const
    {
        Expected result;
        for (std::size_t d = 0; d < 3; ++d) {
            const auto bins = task.bins.find(d);
            result.lengths.push_back(bins != task.bins.end()
                                         ? static_cast<std::size_t>(*std::max_element(
                                               bins->second.begin(), bins->second.end()))
                                     : task.isReduced[d] ? 1
                                                         : task.count[d]);
        }
        const std::size_t count = result.lengths[0] * result.lengths[1] * result.lengths[2];
        std::vector<Numbers> values(count);
        std::vector<Numbers> weights(count);
        Lengths at(3);
        for (at[2] = 0; at[2] < task.count[2]; ++at[2])
            for (at[1] = 0; at[1] < task.count[1]; ++at[1])
                for (at[0] = 0; at[0] < task.count[0]; ++at[0])
                    add(task, at, result.lengths, values, weights);
        for (std::size_t i = 0; i < count; ++i) {
            result.values.push_back(
                reduced(task.kind, values[i], weights[i], !task.weights.empty()));
            result.counts.push_back(static_cast<double>(values[i].size()));
        }
        return result;
    }

private:
    void add(const Task& task, const Lengths& at, const Lengths& resultLengths,
             std::vector<Numbers>& values, std::vector<Numbers>& weights) const
    {
        std::size_t index = 0;
        std::size_t step = 1;
        std::size_t from = 0;
        std::size_t fromStep = 1;
        double weight = 1;
        for (std::size_t d = 0; d < 3; ++d) {
            std::size_t place = task.isReduced[d] ? 0 : at[d];
            if (const auto bins = task.bins.find(d); bins != task.bins.end()) {
                if (bins->second[at[d]] == 0)
                    return;
                place = static_cast<std::size_t>(bins->second[at[d]]) - 1;
            }
            if (const auto own = task.weights.find(d); own != task.weights.end())
                weight *= own->second[at[d]];
            index += place * step;
            step *= resultLengths[d];
            from += (task.start[d] + at[d]) * fromStep;
            fromStep *= lengths[d];
        }
        if (std::isnan(stored[from]))
            return;
        values[index].push_back(stored[from]);
        weights[index].push_back(weight);
    }
};

} // namespace testsupport
