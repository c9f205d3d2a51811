// SPDX-License-Identifier: BSD-3-Clause
#include "cf/decoding.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <random>
#include <type_traits>

namespace Ovard::gridio::cf {
namespace {

template <class T> constexpr StoredType storedType()
{
    if constexpr (std::is_same_v<T, float>)
        return StoredType::float32;
    else if constexpr (std::is_same_v<T, double>)
        return StoredType::float64;
    else {
        constexpr StoredType types[] = {StoredType::int8,   StoredType::uint8, StoredType::int16,
                                        StoredType::uint16, StoredType::int32, StoredType::uint32,
                                        StoredType::int64,  StoredType::uint64};
        constexpr int size = sizeof(T) == 1 ? 0 : sizeof(T) == 2 ? 1 : sizeof(T) == 4 ? 2 : 3;
        return types[2 * size + (std::is_unsigned_v<T> ? 1 : 0)];
    }
}

// Rules for values of type T; missing and valid ones are given as numbers.
template <class T> DecodingRules rulesFor(std::vector<T> missing = {})
{
    DecodingRules rules;
    rules.stored = storedType<T>();
    for (const T value : missing)
        rules.missing.push_back(storedValue(value));
    return rules;
}

template <class U, class T>
std::vector<U> decoded(DecodingRules rules, const std::vector<T>& stored)
{
    rules.decoded = sizeof(U) == 8 ? DecodedType::float64 : DecodedType::float32;
    const Decoder decoder(rules);
    EXPECT_EQ(decoder.storedSize(), sizeof(T));
    EXPECT_EQ(decoder.decodedSize(), sizeof(U));
    std::vector<U> values(stored.size() + 1, U(123));
    decoder.decode(stored.data(), stored.size(), values.data());
    EXPECT_EQ(values.back(), U(123)) << "written past the end";
    values.pop_back();
    return values;
}

// NaNs are equal if their bits are.
template <class U> std::vector<std::uint64_t> bitsOf(const std::vector<U>& values)
{
    std::vector<std::uint64_t> bits(values.size());
    for (std::size_t i = 0; i < values.size(); ++i)
        std::memcpy(&bits[i], &values[i], sizeof(U));
    return bits;
}

// The definition, step by step.
template <class U, class T> U decodedAlone(const DecodingRules& rules, T stored)
{
    const auto valueOf = [](const StoredValue& bytes) {
        T value;
        std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    };
    for (const StoredValue& missing : rules.missing) {
        if (valueOf(missing) == stored)
            return std::numeric_limits<U>::quiet_NaN();
    }
    if ((rules.validMin && stored < valueOf(*rules.validMin)) ||
        (rules.validMax && stored > valueOf(*rules.validMax)))
        return std::numeric_limits<U>::quiet_NaN();
    volatile double scaled = static_cast<double>(stored); // volatile: rounded at each step
    scaled = scaled * rules.scale;
    scaled = scaled + rules.offset;
    return static_cast<U>(scaled);
}

template <class T> class Decoding : public testing::Test {
protected:
    static std::vector<T> anyValues(std::mt19937& engine, std::size_t count)
    {
        std::vector<T> values(count);
        for (T& value : values) {
            if constexpr (std::is_floating_point_v<T>)
                value = static_cast<T>(std::ldexp(static_cast<double>(engine()) - 2e9,
                                                  static_cast<int>(engine() % 100) - 60));
            else
                value = static_cast<T>(static_cast<std::uint64_t>(engine()) << 32 | engine());
            if (engine() % 4 == 0)
                value = static_cast<T>(engine() % 20);
        }
        return values;
    }
};

using Types = testing::Types<std::int8_t, std::uint8_t, std::int16_t, std::uint16_t, std::int32_t,
                             std::uint32_t, std::int64_t, std::uint64_t, float, double>;
TYPED_TEST_SUITE(Decoding, Types, );

TYPED_TEST(Decoding, FollowsItsDefinitionToTheLastBit)
{
    using T = TypeParam;
    std::mt19937 engine(1);
    for (int round = 0; round < 300; ++round) {
        DecodingRules rules = rulesFor<T>();
        for (std::size_t i = engine() % 5; i > 0; --i)
            rules.missing.push_back(storedValue(static_cast<T>(engine() % 20)));
        if (engine() % 2 == 0)
            rules.validMin = storedValue(static_cast<T>(engine() % 10));
        if (engine() % 2 == 0)
            rules.validMax = storedValue(static_cast<T>(10 + engine() % 90));
        if (engine() % 2 == 0)
            rules.scale = static_cast<double>(engine()) / 3e9;
        if (engine() % 2 == 0)
            rules.offset = static_cast<double>(engine()) / 7;
        const std::vector<T> stored = this->anyValues(engine, engine() % 200);
        std::vector<double> doubles;
        std::vector<float> singles;
        for (const T value : stored) {
            doubles.push_back(decodedAlone<double>(rules, value));
            singles.push_back(decodedAlone<float>(rules, value));
        }
        ASSERT_EQ(bitsOf(decoded<double>(rules, stored)), bitsOf(doubles)) << round;
        ASSERT_EQ(bitsOf(decoded<float>(rules, stored)), bitsOf(singles)) << round;
    }
}

TYPED_TEST(Decoding, WithoutRulesConvertsOnly)
{
    using T = TypeParam;
    using Limits = std::numeric_limits<T>;
    const std::vector<T> stored = {Limits::lowest(), Limits::max(), Limits::min(), T(0), T(1)};
    const std::vector<double> values = decoded<double>(rulesFor<T>(), stored);
    for (std::size_t i = 0; i < stored.size(); ++i)
        EXPECT_EQ(values[i], static_cast<double>(stored[i])) << i;
}

TEST(DecodingOfFloats, KeepsTheSignOfZeroWithoutAnOffset)
{
    EXPECT_TRUE(std::signbit(decoded<double>(rulesFor<float>(), std::vector<float>{-0.0F})[0]));
    DecodingRules rules = rulesFor<double>();
    rules.scale = 2;
    EXPECT_TRUE(std::signbit(decoded<double>(rules, std::vector<double>{-0.0})[0]));
}

TEST(DecodingOfFloats, TakesANanForMissingWhateverIsMissing)
{
    const float nan = std::numeric_limits<float>::quiet_NaN();
    for (const auto& rules : {rulesFor<float>(), rulesFor<float>({nan}), rulesFor<float>({1, nan})})
        EXPECT_TRUE(std::isnan(decoded<double>(rules, std::vector<float>{nan})[0]));
    EXPECT_EQ(decoded<double>(rulesFor<float>({nan}), std::vector<float>{5})[0], 5);
}

TEST(DecodingOfFloats, HasInfinitiesInTheValidRangeThatHasNoEnd)
{
    const float infinity = std::numeric_limits<float>::infinity();
    DecodingRules rules = rulesFor<float>();
    rules.validMin = storedValue(0.0F);
    const std::vector<double> values =
        decoded<double>(rules, std::vector<float>{infinity, -infinity});
    EXPECT_EQ(values[0], infinity);
    EXPECT_TRUE(std::isnan(values[1]));
}

TEST(DecodingOfPackedValues, JudgesStoredValues)
{
    DecodingRules rules = rulesFor<std::int16_t>({-32768, 7});
    rules.scale = 0.1;
    rules.offset = 20;
    rules.validMax = storedValue<std::int16_t>(100);
    const std::vector<double> values =
        decoded<double>(rules, std::vector<std::int16_t>{-32768, 7, 100, 101, 0});
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_TRUE(std::isnan(values[1]));
    EXPECT_EQ(values[2], 100 * 0.1 + 20);
    EXPECT_TRUE(std::isnan(values[3]));
    EXPECT_EQ(values[4], 20);
}

TEST(DecodingOfUnsignedValues, TakesBitsAndRulesForUnsigned)
{
    DecodingRules rules = rulesFor<std::int8_t>({-1});
    rules.isUnsigned = true;
    rules.validMax = storedValue<std::int8_t>(-56); // 200
    const std::vector<double> values =
        decoded<double>(rules, std::vector<std::int8_t>{-1, -128, -56, -55, 5});
    EXPECT_TRUE(std::isnan(values[0]));
    EXPECT_EQ(values[1], 128);
    EXPECT_EQ(values[2], 200);
    EXPECT_TRUE(std::isnan(values[3]));
    EXPECT_EQ(values[4], 5);
}

TEST(DecodingOfUnsignedValues, ChangesNothingForOtherTypes)
{
    DecodingRules rules = rulesFor<float>();
    rules.isUnsigned = true;
    EXPECT_EQ(decoded<double>(rules, std::vector<float>{-1.5F})[0], -1.5);
}

TEST(DecodingToSingle, RoundsOnceAfterDouble)
{
    DecodingRules rules = rulesFor<std::int32_t>();
    rules.offset = 0.5;
    const std::int32_t large = (1 << 24) + 1; // no single
    EXPECT_EQ(decoded<float>(rules, std::vector<std::int32_t>{large})[0],
              static_cast<float>(large + 0.5));
}

} // namespace
} // namespace Ovard::gridio::cf
