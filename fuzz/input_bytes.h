// SPDX-License-Identifier: BSD-3-Clause
// The bytes of one fuzzing run, consumed from front to back. Past their end everything reads as
// zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace fuzz {

class InputBytes {
public:
    InputBytes(const std::uint8_t* bytes, std::size_t count) : next_(bytes), left_(count) {}

    bool atEnd() const { return left_ == 0; }

    std::uint8_t byte()
    {
        const std::string_view one = take(1);
        return one.empty() ? std::uint8_t{0} : static_cast<std::uint8_t>(one[0]);
    }

    // 0 to bound - 1; bound is at most 256.
    std::size_t below(std::size_t bound) { return byte() % bound; }

    // True in one of so many cases.
    bool oneIn(std::size_t cases) { return below(cases) == cases - 1; }

    // An element of a table.
    template <class T, std::size_t count> const T& oneOf(const T (&table)[count])
    {
        static_assert(count <= 256);
        return table[below(count)];
    }

    // Any bit pattern. Not for bool.
    template <class T> T any()
    {
        T value{};
        const std::string_view bytes = take(sizeof value);
        std::memcpy(&value, bytes.data(), bytes.size());
        return value;
    }

    // At most count bytes.
    std::string_view take(std::size_t count)
    {
        const std::size_t taken = count < left_ ? count : left_;
        const auto* first = reinterpret_cast<const char*>(next_);
        next_ += taken;
        left_ -= taken;
        return {first, taken};
    }

private:
    const std::uint8_t* next_;
    std::size_t left_;
};

} // namespace fuzz
