// SPDX-License-Identifier: BSD-3-Clause
// Built with -ffp-contract=off, since a fused multiplication and addition would round only once,
// and with -fno-trapping-math, without which comparisons are not vectorised.
#include "cf/decoding.h"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <type_traits>

namespace Ovard::gridio::cf {
namespace {

static_assert(std::numeric_limits<double>::is_iec559 && std::numeric_limits<float>::is_iec559);

// Elements decoded at once: a constant, so that compilers vectorise the loops.
constexpr std::size_t tile = 32;

// Types whose values are all doubles are compared as doubles: vectors of one width are faster.
template <class T>
using Compared = std::conditional_t<std::is_floating_point_v<T> || (sizeof(T) < 8), double, T>;

template <class T> struct TypedRules {
    Compared<T> lowest;
    Compared<T> highest;
    Compared<T> missing; // the first of them
    double scale;
    double offset;
};

template <class T> T valueOf(const StoredValue& stored)
{
    T value;
    std::memcpy(&value, stored.data(), sizeof value);
    return value;
}

template <class T> TypedRules<T> typedRules(const DecodingRules& rules)
{
    using Limits = std::numeric_limits<T>;
    const auto compared = [](const StoredValue* value, T otherwise) {
        return static_cast<Compared<T>>(value == nullptr ? otherwise : valueOf<T>(*value));
    };
    TypedRules<T> typed;
    typed.lowest = compared(rules.validMin ? &*rules.validMin : nullptr,
                            Limits::has_infinity ? -Limits::infinity() : Limits::lowest());
    typed.highest = compared(rules.validMax ? &*rules.validMax : nullptr,
                             Limits::has_infinity ? Limits::infinity() : Limits::max());
    typed.missing = compared(rules.missing.empty() ? nullptr : rules.missing.data(), T());
    typed.scale = rules.scale;
    typed.offset = rules.offset;
    return typed;
}

#define GRIDIO_INLINE inline __attribute__((always_inline))

// Branch-free per element.
template <class T, class U, bool hasRange, bool hasMissing>
GRIDIO_INLINE void decodeTile(const T* __restrict stored, U* __restrict decoded,
                              const TypedRules<T>& rules)
{
    const TypedRules<T> own = rules;
    for (std::size_t i = 0; i < tile; ++i) {
        const auto compared = static_cast<Compared<T>>(stored[i]);
        bool isMissing = false;
        if constexpr (hasRange)
            isMissing = static_cast<bool>(static_cast<int>(compared < own.lowest) |
                                          static_cast<int>(compared > own.highest));
        if constexpr (hasMissing)
            isMissing = static_cast<bool>(static_cast<int>(isMissing) |
                                          static_cast<int>(compared == own.missing));
        const double scaled = static_cast<double>(stored[i]) * own.scale;
        const double value = scaled + own.offset;
        decoded[i] = static_cast<U>(isMissing ? std::numeric_limits<double>::quiet_NaN() : value);
    }
}

// Further missing values are rare, and the tile is in the first-level cache.
template <class T, class U>
GRIDIO_INLINE void blankTile(const T* __restrict stored, U* __restrict decoded, T missing)
{
    for (std::size_t i = 0; i < tile; ++i)
        decoded[i] = stored[i] == missing ? std::numeric_limits<U>::quiet_NaN() : decoded[i];
}

template <class T, class U, bool hasRange, bool hasMissing>
GRIDIO_INLINE void decodeTiles(const DecodingRules& rules, const T* stored, std::size_t count,
                               U* decoded)
{
    const TypedRules<T> typed = typedRules<T>(rules);
    const auto decodeOne = [&](const T* from, U* to) __attribute__((always_inline))
    {
        decodeTile<T, U, hasRange, hasMissing>(from, to, typed);
        for (std::size_t i = 1; i < rules.missing.size(); ++i)
            blankTile(from, to, valueOf<T>(rules.missing[i]));
    };
    std::size_t done = 0;
    for (; count - done >= tile; done += tile)
        decodeOne(stored + done, decoded + done);
    if (done == count)
        return;
    T lastStored[tile] = {};
    U lastDecoded[tile];
    std::copy(stored + done, stored + count, lastStored);
    decodeOne(lastStored, lastDecoded);
    std::copy(lastDecoded, lastDecoded + (count - done), decoded + done);
}

template <class T, class U, bool hasRange, bool hasMissing>
void decodeAll(const DecodingRules& rules, const void* stored, std::size_t count, void* decoded)
{
    decodeTiles<T, U, hasRange, hasMissing>(rules, static_cast<const T*>(stored), count,
                                            static_cast<U*>(decoded));
}

using Run = void (*)(const DecodingRules&, const void*, std::size_t, void*);

#ifdef __x86_64__
// The same for processors with longer vectors: twice as fast. The target has no fused operations.
template <class T, class U, bool hasRange, bool hasMissing>
__attribute__((target("avx2"))) void decodeAllWide(const DecodingRules& rules, const void* stored,
                                                   std::size_t count, void* decoded)
{
    decodeTiles<T, U, hasRange, hasMissing>(rules, static_cast<const T*>(stored), count,
                                            static_cast<U*>(decoded));
}

template <class T, class U, bool hasRange, bool hasMissing> Run chosenRun()
{
    return __builtin_cpu_supports("avx2") != 0 ? decodeAllWide<T, U, hasRange, hasMissing>
                                               : decodeAll<T, U, hasRange, hasMissing>;
}
#else
template <class T, class U, bool hasRange, bool hasMissing> Run chosenRun()
{
    return decodeAll<T, U, hasRange, hasMissing>;
}
#endif

template <class T, class U> Run runOf(bool hasRange, bool hasMissing)
{
    if (hasRange)
        return hasMissing ? chosenRun<T, U, true, true>() : chosenRun<T, U, true, false>();
    return hasMissing ? chosenRun<T, U, false, true>() : chosenRun<T, U, false, false>();
}

template <class T> Run runOf(const DecodingRules& rules)
{
    const bool hasRange = rules.validMin || rules.validMax;
    const bool hasMissing = !rules.missing.empty();
    return rules.decoded == DecodedType::float64 ? runOf<T, double>(hasRange, hasMissing)
                                                 : runOf<T, float>(hasRange, hasMissing);
}

struct TypeRow {
    std::size_t size;
    Run (*run)(const DecodingRules&);
    StoredType unsignedType;
};

// In the order of StoredType.
const TypeRow types[] = {
    {1, runOf<std::int8_t>, StoredType::uint8},   {1, runOf<std::uint8_t>, StoredType::uint8},
    {2, runOf<std::int16_t>, StoredType::uint16}, {2, runOf<std::uint16_t>, StoredType::uint16},
    {4, runOf<std::int32_t>, StoredType::uint32}, {4, runOf<std::uint32_t>, StoredType::uint32},
    {8, runOf<std::int64_t>, StoredType::uint64}, {8, runOf<std::uint64_t>, StoredType::uint64},
    {4, runOf<float>, StoredType::float32},       {8, runOf<double>, StoredType::float64},
};

const TypeRow& rowOf(StoredType type) { return types[static_cast<std::size_t>(type)]; }

StoredType readType(const DecodingRules& rules)
{
    return rules.isUnsigned ? rowOf(rules.stored).unsignedType : rules.stored;
}

} // namespace

std::size_t sizeOf(StoredType type) { return rowOf(type).size; }

Decoder::Decoder(const DecodingRules& rules)
    : rules_(rules), storedSize_(sizeOf(rules.stored)), run_(rowOf(readType(rules)).run(rules))
{
}

} // namespace Ovard::gridio::cf
