// SPDX-License-Identifier: BSD-3-Clause
// What the module sees of an array that a script passes.
#include "tests/host/stand_in_module.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

using standalone::Dims;
using standalone::Value;

struct ClassCase {
    const char* name;
    Value value; // 2-by-1
    vxClassID classId;
    std::size_t elementSize;
};

std::vector<ClassCase> everyClass()
{
    return {
        {"double", Value::column<double>({1, 2}), vxDOUBLE_CLASS, 8},
        {"single", Value::column<float>({1, 2}), vxSINGLE_CLASS, 4},
        {"int8", Value::column<std::int8_t>({1, 2}), vxINT8_CLASS, 1},
        {"uint8", Value::column<std::uint8_t>({1, 2}), vxUINT8_CLASS, 1},
        {"int16", Value::column<std::int16_t>({1, 2}), vxINT16_CLASS, 2},
        {"uint16", Value::column<std::uint16_t>({1, 2}), vxUINT16_CLASS, 2},
        {"int32", Value::column<std::int32_t>({1, 2}), vxINT32_CLASS, 4},
        {"uint32", Value::column<std::uint32_t>({1, 2}), vxUINT32_CLASS, 4},
        {"int64", Value::column<std::int64_t>({1, 2}), vxINT64_CLASS, 8},
        {"uint64", Value::column<std::uint64_t>({1, 2}), vxUINT64_CLASS, 8},
        {"char", Value::text({2, 1}, u"ab"), vxCHAR_CLASS, 2},
        {"logical", Value::logical({2, 1}, {true, false}), vxLOGICAL_CLASS, 1},
        {"cell", Value::cell({2, 1}, {1, "x"}), vxCELL_CLASS, 0},
        {"struct", Value::structures({2, 1}, {"a"}), vxSTRUCT_CLASS, 0},
        {"anything else", Value::anythingElse({2, 1}), vxUNKNOWN_CLASS, 0},
    };
}

class Array : public HostContract {
protected:
    // Looks at value as the module does.
    void look(const Value& value, const std::function<void(const vxArray*)>& at)
    {
        const auto outcome = inCall([&](const Call& call) { at(call.arguments[0]); }, {value});
        EXPECT_TRUE(outcome.succeeded()) << outcome;
    }
};

TEST_F(Array, HasItsClassItsElementSizeAndItsDimensions)
{
    for (const ClassCase& c : everyClass()) {
        SCOPED_TRACE(c.name);
        look(c.value, [&](const vxArray* array) {
            EXPECT_EQ(vxGetClassID(array), c.classId);
            EXPECT_EQ(vxGetElementSize(array), c.elementSize);
            EXPECT_EQ(vxGetNumberOfElements(array), 2u);
            EXPECT_FALSE(vxIsEmpty(array));
            ASSERT_EQ(vxGetNumberOfDimensions(array), 2u);
            EXPECT_EQ(vxGetDimensions(array)[0], 2u);
            EXPECT_EQ(vxGetDimensions(array)[1], 1u);
        });
    }
}

TEST_F(Array, HandsOutAlignedStorageOfEveryClassThatHasOne)
{
    for (const ClassCase& c : everyClass()) {
        SCOPED_TRACE(c.name);
        if (c.elementSize == 0)
            continue;
        look(c.value, [&](const vxArray* array) {
            const void* data = vxGetData(array);
            ASSERT_NE(data, nullptr);
            EXPECT_EQ(reinterpret_cast<std::uintptr_t>(data) % c.elementSize, 0u);
        });
    }
}

TEST_F(Array, IsEmptyWhenAnyDimensionIsZero)
{
    for (const Dims& dims : {Dims{0, 0}, Dims{0, 3}, Dims{3, 0}, Dims{2, 0, 5}}) {
        for (const vxClassID classId : {vxDOUBLE_CLASS, vxINT8_CLASS, vxCHAR_CLASS, vxCELL_CLASS}) {
            const Value empty = Value::empty(classId, dims);
            SCOPED_TRACE(empty.describe());
            look(empty, [&](const vxArray* array) {
                EXPECT_TRUE(vxIsEmpty(array));
                EXPECT_EQ(vxGetNumberOfElements(array), 0u);
                EXPECT_EQ(vxGetNumberOfDimensions(array), dims.size());
            });
        }
    }
}

TEST_F(Array, ListsElementsWithTheFirstDimensionFastest)
{
    // The matrix [1 3 5; 2 4 6], and a cube behind it.
    const Value cube =
        Value::numeric<std::int32_t>({2, 3, 2}, {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    look(cube, [](const vxArray* array) {
        ASSERT_EQ(vxGetNumberOfDimensions(array), 3u);
        const std::size_t* dims = vxGetDimensions(array);
        const auto* elements = static_cast<const std::int32_t*>(vxGetData(array));
        EXPECT_EQ(elements[1], 2);                 // one down
        EXPECT_EQ(elements[dims[0]], 3);           // one to the right
        EXPECT_EQ(elements[dims[0] * dims[1]], 7); // one behind
        EXPECT_EQ(vxGetNumberOfElements(array), dims[0] * dims[1] * dims[2]);
    });
}

TEST_F(Array, ShowsOnlyTheRealPartOfAComplexOne)
{
    const Value complex = Value::complex<double>({1, 3}, {1, 2, 3}, {-1, -2, -3});
    EXPECT_TRUE(complex.isComplex());
    look(complex, [](const vxArray* array) {
        EXPECT_TRUE(vxIsComplex(array));
        EXPECT_EQ(vxGetClassID(array), vxDOUBLE_CLASS);
        EXPECT_EQ(vxGetNumberOfElements(array), 3u);
        const auto* elements = static_cast<const double*>(vxGetData(array));
        EXPECT_EQ(std::vector<double>(elements, elements + 3), (std::vector<double>{1, 2, 3}));
    });
}

TEST_F(Array, StaysWhereItIsDuringTheCall)
{
    look(Value::row<double>({1, 2}), [](const vxArray* array) {
        const void* data = vxGetData(array);
        const std::size_t* dims = vxGetDimensions(array);
        for (int i = 0; i < 100; ++i)
            vxCreateDoubleScalar(i);
        EXPECT_EQ(vxGetData(array), data);
        EXPECT_EQ(vxGetDimensions(array), dims);
    });
}

TEST_F(Array, IsALogicalScalarOnlyIfLogicalAndOfOneElement)
{
    const struct {
        Value value;
        bool isLogicalScalar;
    } cases[] = {
        {true, true},
        {false, true},
        {Value::logical({1, 1, 1}, {true}), true},
        {1, false},
        {Value::scalar<std::uint8_t>(1), false},
        {"t", false},
        {Value::logical({1, 2}, {true, true}), false},
        {Value::empty(vxLOGICAL_CLASS), false},
        {Value::cell({1, 1}, {true}), false},
        {Value::anythingElse(), false},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.value.describe());
        look(c.value,
             [&](const vxArray* array) { EXPECT_EQ(vxIsLogicalScalar(array), c.isLogicalScalar); });
    }
}

TEST_F(Array, HoldsALogicalElementInOneByteThatIsTrueWhenNotZero)
{
    look(Value::logicalBytes({1, 3}, {0, 1, 255}), [](const vxArray* array) {
        ASSERT_NE(vxGetLogicals(array), nullptr);
        unsigned char bytes[3];
        std::memcpy(bytes, vxGetLogicals(array), sizeof bytes);
        EXPECT_EQ(bytes[0], 0);
        EXPECT_NE(bytes[1], 0);
        EXPECT_NE(bytes[2], 0);
        EXPECT_EQ(static_cast<const void*>(vxGetLogicals(array)), vxGetData(array));
    });
}

TEST(Number, IsNaNOrInfiniteOrNeither)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    const struct {
        double value;
        bool isNaN;
        bool isInf;
    } cases[] = {
        {std::nan(""), true, false},
        {-std::nan(""), true, false},
        {infinity, false, true},
        {-infinity, false, true},
        {0.0, false, false},
        {std::numeric_limits<double>::max(), false, false},
        {std::numeric_limits<double>::denorm_min(), false, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(vxIsNaN(c.value), c.isNaN) << c.value;
        EXPECT_EQ(vxIsInf(c.value), c.isInf) << c.value;
    }
}

TEST_F(Array, IsLookedAtWithoutAnyAllocation)
{
    host.failAllocation(1);
    for (const ClassCase& c : everyClass()) {
        look(c.value, [](const vxArray* array) {
            vxGetClassID(array);
            vxIsEmpty(array);
            vxGetNumberOfElements(array);
            vxGetDimensions(array);
            vxGetElementSize(array);
            vxGetData(array);
            vxIsLogicalScalar(array);
            EXPECT_FALSE(vxIsComplex(array));
        });
    }
    EXPECT_EQ(host.allocations(), 0u);
}

} // namespace
