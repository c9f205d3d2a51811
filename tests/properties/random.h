// SPDX-License-Identifier: BSD-3-Clause
// What the random tests of blocks share.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdlib>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace properties {

inline std::size_t environmentNumber(const char* name, std::size_t usual)
{
    const char* text = std::getenv(name);
    return text == nullptr ? usual : std::strtoul(text, nullptr, 10);
}

class Random {
public:
    explicit Random(std::size_t seed) : engine_(static_cast<std::mt19937::result_type>(seed)) {}

    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(engine_);
    }
    std::size_t between(std::size_t first, std::size_t last)
    {
        return first + below(last - first + 1);
    }
    bool oneIn(std::size_t n) { return below(n) == 0; }
    template <class List> const auto& oneOf(const List& list)
    {
        return list[below(std::size(list))];
    }
    template <class List> void shuffle(List& list)
    {
        std::shuffle(list.begin(), list.end(), engine_);
    }

private:
    std::mt19937 engine_;
};

using Lengths = std::vector<std::size_t>;

inline std::size_t productOf(const Lengths& lengths)
{
    std::size_t product = 1;
    for (const std::size_t length : lengths)
        product *= length;
    return product;
}

inline Lengths indexOf(std::size_t position, const Lengths& lengths)
{
    Lengths index(lengths.size());
    for (std::size_t i = lengths.size(); i-- > 0; position /= lengths[i])
        index[i] = position % lengths[i];
    return index;
}

inline std::size_t positionOf(const Lengths& index, const Lengths& lengths)
{
    std::size_t position = 0;
    for (std::size_t i = 0; i < lengths.size(); ++i)
        position = position * lengths[i] + index[i];
    return position;
}

inline std::string show(const Lengths& lengths)
{
    std::ostringstream out;
    for (const std::size_t length : lengths)
        out << length << ' ';
    return out.str();
}

} // namespace properties
