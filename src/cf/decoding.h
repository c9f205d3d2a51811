// SPDX-License-Identifier: BSD-3-Clause
// Decoding of stored values: missing values become NaN, packed ones are unpacked (CF conventions,
// sections 2.5.1 and 8.1).
//
// Each element is decoded by itself, with the same bits on every machine:
//   1. A signed integer whose variable has _Unsigned is reinterpreted as unsigned.
//   2. It is missing if it equals a missing value or lies outside the valid range. Both are stored
//      values and are compared as such, before scaling. A NaN is missing already.
//   3. It is converted to double, multiplied by the scale and added to the offset, each step
//      rounded to double.
//   4. The result is rounded to single on request.
#pragma once

#include <array>
#include <cstddef>
#include <cstring>
#include <optional>
#include <vector>

namespace Ovard::gridio::cf {

enum class StoredType {
    int8,
    uint8,
    int16,
    uint16,
    int32,
    uint32,
    int64,
    uint64,
    float32,
    float64
};

enum class DecodedType { float64, float32 };

std::size_t sizeOf(StoredType type);
constexpr std::size_t sizeOf(DecodedType type) { return type == DecodedType::float64 ? 8 : 4; }

// The bytes of one stored value in native order; those beyond its size do not count.
using StoredValue = std::array<unsigned char, 8>;

template <class T> StoredValue storedValue(T value)
{
    static_assert(sizeof value <= sizeof(StoredValue));
    StoredValue stored{};
    std::memcpy(stored.data(), &value, sizeof value);
    return stored;
}

struct DecodingRules {
    StoredType stored = StoredType::float64;
    bool isUnsigned = false;             // _Unsigned; ignored for other types than signed integers
    std::vector<StoredValue> missing;    // _FillValue, missing_value
    std::optional<StoredValue> validMin; // inclusive
    std::optional<StoredValue> validMax;
    double scale = 1;
    double offset = -0.0; // leaves every value as it is, -0 too
    DecodedType decoded = DecodedType::float64;
};

class Decoder {
public:
    explicit Decoder(const DecodingRules& rules);

    std::size_t storedSize() const { return storedSize_; }
    std::size_t decodedSize() const { return sizeOf(rules_.decoded); }

    // From count stored values in native byte order. The two may not overlap; each is aligned for
    // its elements. Several threads may decode at once.
    void decode(const void* stored, std::size_t count, void* decoded) const
    {
        run_(rules_, stored, count, decoded);
    }

private:
    using Run = void (*)(const DecodingRules&, const void*, std::size_t, void*);

    DecodingRules rules_;
    std::size_t storedSize_;
    Run run_;
};

} // namespace Ovard::gridio::cf
