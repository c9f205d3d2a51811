// SPDX-License-Identifier: BSD-3-Clause
// Looking at an array, beyond what the contract asks.
#include "tests/standalone/stand_in_module.h"

#include <cstdint>
#include <cstring>

namespace {

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
