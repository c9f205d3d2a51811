// SPDX-License-Identifier: BSD-3-Clause
// START, COUNT and STRIDE.
#include "data/elements/index_vectors.h"

#include "tests/support/module_test.h"

#include <cmath>
#include <limits>

using namespace Ovard::gridio;
using namespace testsupport;
using standalone::Outcome;
using standalone::Value;
using testing::ElementsAre;

namespace {

constexpr double twoTo63 = 9223372036854775808.0;
constexpr double twoTo64 = 18446744073709551616.0;
constexpr double infinity = std::numeric_limits<double>::infinity();
const double nan_ = std::numeric_limits<double>::quiet_NaN();

class IndexVectors : public ModuleTest {
protected:
    static SizeVector sizes(const Value& a) { return toSizeVector(a.array(), "START"); }
    static StrideVector strides(const Value& a) { return toStrideVector(a.array(), "STRIDE"); }

    // The conversion within a call of the module, which names an overflow.
    Outcome start(const Value& a) { return host.attempt("getVar1Double", {-7, 0, a}); }
    Outcome count(const Value& a) { return host.attempt("getVaraDouble", {-7, 0, 1, a}); }
    Outcome stride(const Value& a) { return host.attempt("getVarsDouble", {-7, 0, 1, 1, a}); }
};

TEST_F(IndexVectors, AreReversed)
{
    EXPECT_THAT(sizes(Value::row<double>({0, 5})), ElementsAre(5U, 0U));
    EXPECT_THAT(strides(Value::row<double>({1, -2, 3})), ElementsAre(3, -2, 1));
    EXPECT_THAT(sizes(Value::row<double>({1, 2, 3, 4, 5, 6, 7, 8, 9, 10})),
                ElementsAre(10U, 9U, 8U, 7U, 6U, 5U, 4U, 3U, 2U, 1U));
}

TEST_F(IndexVectors, AreReadInStorageOrderWhateverTheShape)
{
    EXPECT_THAT(sizes(Value::column<double>({1, 2, 3})), ElementsAre(3U, 2U, 1U));
    EXPECT_THAT(sizes(Value::numeric<double>({2, 1, 2}, {1, 2, 3, 4})),
                ElementsAre(4U, 3U, 2U, 1U));
}

TEST_F(IndexVectors, ComeFromEveryNumericClass)
{
    const Value all[] = {Value::row<double>({1, 2}),       Value::row<float>({1, 2}),
                         Value::row<std::int8_t>({1, 2}),  Value::row<std::uint8_t>({1, 2}),
                         Value::row<std::int16_t>({1, 2}), Value::row<std::uint16_t>({1, 2}),
                         Value::row<std::int32_t>({1, 2}), Value::row<std::uint32_t>({1, 2}),
                         Value::row<std::int64_t>({1, 2}), Value::row<std::uint64_t>({1, 2})};
    for (const Value& a : all) {
        EXPECT_THAT(sizes(a), ElementsAre(2U, 1U)) << a;
        EXPECT_THAT(strides(a), ElementsAre(2, 1)) << a;
    }
}

TEST_F(IndexVectors, TakeTheRealPartOfAComplexArray)
{
    EXPECT_THAT(sizes(Value::complex<double>({1, 2}, {3, 4}, {nan_, -1})), ElementsAre(4U, 3U));
}

TEST_F(IndexVectors, TruncateTowardZero)
{
    EXPECT_THAT(sizes(Value::row<double>({2.9, 0.5})), ElementsAre(0U, 2U));
    EXPECT_THAT(strides(Value::row<float>({2.9F, -2.9F})), ElementsAre(-2, 2));
}

TEST_F(IndexVectors, AcceptFloatingSizesAboveMinusOneDeliberately)
{
    EXPECT_THAT(sizes(-0.5), ElementsAre(0U));
    EXPECT_THAT(sizes(std::nextafter(-1.0, 0.0)), ElementsAre(0U));
    EXPECT_THAT(sizes(Value::scalar(std::nextafter(-1.0F, 0.0F))), ElementsAre(0U));
    EXPECT_THAT(start(-1), raises("argumentOutOfBounds"));
    EXPECT_THAT(start(Value::scalar(-1.0F)), raises("argumentOutOfBounds"));
}

TEST_F(IndexVectors, AcceptSizesBelowTwoTo64)
{
    EXPECT_THAT(sizes(std::nextafter(twoTo64, 0.0)), ElementsAre(18446744073709549568U));
    EXPECT_THAT(sizes(Value::scalar(std::nextafter(0x1p64F, 0.0F))),
                ElementsAre(18446742974197923840U));
    EXPECT_THAT(sizes(Value::scalar(~std::uint64_t{0})), ElementsAre(~std::uint64_t{0}));
    EXPECT_THAT(sizes(Value::scalar(std::uint64_t{1} << 63)), ElementsAre(std::uint64_t{1} << 63));
    EXPECT_THAT(start(twoTo64), raises("argumentOutOfBounds"));
    EXPECT_THAT(start(Value::scalar(0x1p64F)), raises("argumentOutOfBounds"));
}

TEST_F(IndexVectors, RefuseNegativeIntegersAsSizes)
{
    const Value negative[] = {Value::scalar<std::int8_t>(-1), Value::scalar<std::int16_t>(-1),
                              Value::scalar<std::int32_t>(-1), Value::scalar<std::int64_t>(-1)};
    for (const Value& a : negative) {
        EXPECT_THAT(start(a), raises("argumentOutOfBounds")) << a;
        EXPECT_THAT(count(a), raises("argumentOutOfBounds")) << a;
    }
}

TEST_F(IndexVectors, AcceptFloatingStridesBetweenMinusTwoTo63AndTwoTo63)
{
    EXPECT_THAT(strides(std::nextafter(twoTo63, 0.0)), ElementsAre(9223372036854774784));
    EXPECT_THAT(strides(std::nextafter(-twoTo63, 0.0)), ElementsAre(-9223372036854774784));
    for (const double bound : {twoTo63, -twoTo63}) {
        EXPECT_THAT(stride(bound), raises("argumentOutOfBounds"));
        EXPECT_THAT(stride(Value::scalar(static_cast<float>(bound))),
                    raises("argumentOutOfBounds"));
    }
}

TEST_F(IndexVectors, AcceptNegativeIntegerStrides)
{
    EXPECT_THAT(strides(Value::scalar<std::int32_t>(-1)), ElementsAre(-1));
    EXPECT_THAT(strides(Value::scalar<std::int8_t>(-128)), ElementsAre(-128));
    EXPECT_THAT(strides(Value::scalar(std::numeric_limits<std::int64_t>::min())),
                ElementsAre(std::numeric_limits<std::int64_t>::min()));
}

TEST_F(IndexVectors, RefuseUint64StridesFromTwoTo63)
{
    EXPECT_THAT(strides(Value::scalar((std::uint64_t{1} << 63) - 1)),
                ElementsAre(std::numeric_limits<std::ptrdiff_t>::max()));
    EXPECT_THAT(stride(Value::scalar(std::uint64_t{1} << 63)), raises("argumentOutOfBounds"));
}

TEST_F(IndexVectors, MustNotBeEmpty)
{
    const Value empties[] = {Value::empty(), Value::empty(vxINT32_CLASS, {1, 0}),
                             Value::empty(vxCHAR_CLASS), Value::cell({0, 0}, {})};
    for (const Value& empty : empties) { // also when the class is wrong as well
        EXPECT_THAT(start(empty), raises("argumentIsEmpty", {"START"})) << empty;
        EXPECT_THAT(count(empty), raises("argumentIsEmpty", {"COUNT"})) << empty;
        EXPECT_THAT(stride(empty), raises("argumentIsEmpty", {"STRIDE"})) << empty;
    }
}

TEST_F(IndexVectors, MustBeNumeric)
{
    const Value others[] = {"12", true, Value::cell({1, 1}, {0}), Value::anythingElse()};
    for (const Value& other : others) {
        EXPECT_THAT(start(other), raises("argumentHasBadDatatype", {"START"})) << other;
        EXPECT_THAT(count(other), raises("argumentHasBadDatatype", {"COUNT"})) << other;
        EXPECT_THAT(stride(other), raises("argumentHasBadDatatype", {"STRIDE"})) << other;
    }
}

TEST_F(IndexVectors, MustBeFinite)
{
    for (const double bad : {nan_, infinity, -infinity}) {
        const Value vectors[] = {Value::row<double>({1, bad}), Value::row<double>({bad, 1}),
                                 Value::row<float>({1, static_cast<float>(bad)})};
        for (const Value& vector : vectors) {
            EXPECT_THAT(start(vector), raises("indexArgumentNotFinite")) << vector;
            EXPECT_THAT(count(vector), raises("indexArgumentNotFinite")) << vector;
            EXPECT_THAT(stride(vector), raises("indexArgumentNotFinite")) << vector;
        }
    }
}

TEST_F(IndexVectors, ReportNotFiniteBeforeOutOfRange)
{
    EXPECT_THAT(start(Value::row<double>({-1, nan_})), raises("indexArgumentNotFinite"));
    EXPECT_THAT(start(Value::row<double>({-1, 0})), raises("argumentOutOfBounds"));
    EXPECT_THAT(start(Value::row<double>({0, -1})), raises("argumentOutOfBounds"));
}

} // namespace
