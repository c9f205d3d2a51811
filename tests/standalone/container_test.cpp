// SPDX-License-Identifier: BSD-3-Clause
// Cell arrays and structures: the module's view of those that a script passes, and those that it
// creates.
#include "tests/standalone/stand_in_module.h"

#include "vx/text.h"

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

namespace {

using standalone::Dims;
using standalone::Value;

class Container : public HostContract {
protected:
    // Looks at value as the module does.
    void look(const Value& value, const std::function<void(const vxArray*)>& at)
    {
        const auto outcome = inCall([&](const Call& call) { at(call.arguments[0]); }, {value});
        EXPECT_TRUE(outcome.succeeded()) << outcome;
    }
};

TEST_F(Container, ShowsItsCellsInStorageOrder)
{
    const Value cells = Value::cell({2, 2}, {1, "two", Value::cell({1, 1}, {3}), Value::empty()});
    look(cells, [](const vxArray* array) {
        EXPECT_EQ(*static_cast<const double*>(vxGetData(vxGetCell(array, 0))), 1);
        EXPECT_EQ(vxGetText(vxGetCell(array, 1)), u"two");
        const vxArray* inner = vxGetCell(array, 2);
        EXPECT_EQ(vxGetClassID(inner), vxCELL_CLASS);
        EXPECT_EQ(*static_cast<const double*>(vxGetData(vxGetCell(inner, 0))), 3);
        EXPECT_EQ(vxGetClassID(vxGetCell(array, 3)), vxDOUBLE_CLASS);
    });
}

TEST_F(Container, ShowsAnEmptyCellAsZeroByZero)
{
    const std::size_t dims[] = {1, 2};
    const Value cells = created([&] { return vxCreateCellArray(2, dims); });
    look(cells, [](const vxArray* array) {
        const vxArray* inside = vxGetCell(array, 1);
        EXPECT_EQ(vxGetClassID(inside), vxDOUBLE_CLASS);
        EXPECT_TRUE(vxIsEmpty(inside));
        ASSERT_EQ(vxGetNumberOfDimensions(inside), 2u);
        EXPECT_EQ(vxGetDimensions(inside)[0], 0u);
        EXPECT_EQ(vxGetDimensions(inside)[1], 0u);
    });
}

TEST_F(Container, ShowsItsFieldsInTheirOrder)
{
    const Value structure = Value::structure({{"depth", Value::column<float>({1, 2})},
                                              {"h\xC3\xB6he", "high"},
                                              {"", Value::structure({{"inner", true}})}});
    look(structure, [](const vxArray* array) {
        EXPECT_EQ(vxGetClassID(array), vxSTRUCT_CLASS);
        EXPECT_EQ(vxGetNumberOfElements(array), 1u);
        ASSERT_EQ(vxGetNumberOfFields(array), 3u);
        EXPECT_STREQ(vxGetFieldName(array, 0), "depth");
        EXPECT_STREQ(vxGetFieldName(array, 1), "h\xC3\xB6he");
        EXPECT_STREQ(vxGetFieldName(array, 2), "");
        EXPECT_EQ(static_cast<const float*>(vxGetData(vxGetField(array, 0)))[1], 2.0F);
        EXPECT_EQ(vxGetText(vxGetField(array, 1)), u"high");
        const vxArray* inner = vxGetField(array, 2);
        EXPECT_STREQ(vxGetFieldName(inner, 0), "inner");
        EXPECT_TRUE(vxIsLogicalScalar(vxGetField(inner, 0)));
    });
}

TEST_F(Container, ShowsTheFieldsOfAnyNumberOfStructures)
{
    for (const Dims& dims : {Dims{0, 0}, Dims{1, 3}, Dims{2, 2, 2}}) {
        look(Value::structures(dims, {"a", "b"}), [&](const vxArray* array) {
            EXPECT_EQ(vxGetNumberOfFields(array), 2u);
            EXPECT_STREQ(vxGetFieldName(array, 1), "b");
            EXPECT_EQ(vxGetNumberOfDimensions(array), dims.size());
        });
    }
    look(Value::structure({}),
         [](const vxArray* array) { EXPECT_EQ(vxGetNumberOfFields(array), 0u); });
}

TEST_F(Container, ShowsACellToItsEndWhileOthersAreLookedInto)
{
    const Value cells =
        Value::cell({1, 2}, {Value::cell({1, 2}, {1, 2}), Value::cell({1, 1}, {3})});
    look(cells, [](const vxArray* array) {
        const vxArray* first = vxGetCell(array, 0);
        const void* one = vxGetData(vxGetCell(first, 0));
        EXPECT_EQ(*static_cast<const double*>(one), 1);
        EXPECT_EQ(*static_cast<const double*>(vxGetData(vxGetCell(first, 1))), 2);
        const vxArray* second = vxGetCell(array, 1);
        EXPECT_EQ(*static_cast<const double*>(vxGetData(vxGetCell(second, 0))), 3);
    });
}

TEST_F(Container, PassesTheBytesOfText)
{
    look(Value::text({2, 2}, std::u16string{u'a', u'\0', char16_t{0xFFC3}, char16_t{0x1B1}}),
         [](const vxArray* array) {
             char bytes[5] = {};
             vxGetCharBytes(array, bytes);
             EXPECT_EQ(std::memcmp(bytes, "a\0\xC3\xB1", 5), 0);
         });
    look(Value::empty(vxCHAR_CLASS), [](const vxArray* array) { vxGetCharBytes(array, nullptr); });
}

TEST_F(Container, MakesTextOfBytes)
{
    const std::size_t dims[] = {2, 2};
    EXPECT_EQ(created([&] { return vxCreateCharArrayFromBytes(2, dims, "a\0\xC3\xB1"); }),
              Value::text({2, 2}, std::u16string{u'a', u'\0', char16_t{0xFFC3}, char16_t{0xFFB1}}));
    EXPECT_EQ(created([] { return vxCreateCharArrayFromBytes(0, nullptr, nullptr); }), Value(""));
}

TEST_F(Container, IsMadeWithStructuresAndCellsInside)
{
    const char* const names[] = {"b", "a", "h\xC3\xB6he"};
    const std::size_t two[] = {2, 1};
    const Value structure = created([&] {
        vxArray* made = vxCreateStruct(3, names);
        vxArray* cells = vxCreateCellArray(2, two);
        vxSetCell(cells, 1, vxCreateString("inner"));
        vxSetField(made, 2, cells);
        vxSetField(made, 0, vxCreateDoubleScalar(1));
        return made;
    });
    EXPECT_EQ(structure,
              Value::structure({{"b", 1},
                                {"a", Value::empty()},
                                {"h\xC3\xB6he", Value::cell({2, 1}, {Value::empty(), "inner"})}}));
    EXPECT_EQ(host.liveArrays(), 4u); // the structure, the number, the cells, the text
}

TEST_F(Container, LetsAFieldBeSetAgain)
{
    const char* const names[] = {"a"};
    const Value structure = created([&] {
        vxArray* made = vxCreateStruct(1, names);
        vxSetField(made, 0, vxCreateDoubleScalar(1));
        vxSetField(made, 0, vxCreateDoubleScalar(2));
        return made;
    });
    EXPECT_EQ(structure.field("a"), Value(2));
    EXPECT_EQ(host.liveArrays(), 2u);
}

TEST_F(Container, RaisesOutOfMemoryWhenItCannotBeMade)
{
    const std::function<void()> allocating[] = {
        [] { vxCreateStruct(0, nullptr); },
        [] { vxCreateCharArrayFromBytes(0, nullptr, nullptr); },
    };
    for (const auto& allocate : allocating) {
        host.failAllocation(1);
        const auto outcome = inCall([&](const Call&) { allocate(); });
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->name(), "outOfMemory");
    }
    EXPECT_EQ(host.liveArrays(), 0u);
}

TEST_F(Container, ShowsWhatDoesNotExistAsABreach)
{
    const char* const names[] = {"a"};
    const std::size_t one[] = {1, 1};
    const std::function<void()> wrong[] = {
        [&] { vxGetCell(vxCreateCellArray(2, one), 1); },
        [&] { vxGetCell(vxCreateStruct(1, names), 0); },
        [&] { vxGetField(vxCreateStruct(1, names), 1); },
        [&] { vxGetField(vxCreateCellArray(2, one), 0); },
        [&] { vxGetFieldName(vxCreateStruct(1, names), 1); },
        [&] { vxSetField(vxCreateStruct(1, names), 1, vxCreateDoubleScalar(1)); },
        [&] { vxSetField(vxCreateCellArray(2, one), 0, vxCreateDoubleScalar(1)); },
        [&] { vxSetCell(vxCreateStruct(1, names), 0, vxCreateDoubleScalar(1)); },
    };
    for (const auto& act : wrong) {
        inCall([&](const Call&) { act(); });
        expectBreach("does not exist");
    }
}

TEST_F(Container, ShowsAnArrayThatIsFilledAfterItWasPutAwayAsABreach)
{
    const std::size_t one[] = {1, 1};
    inCall([&](const Call&) {
        vxArray* value = vxCreateNumericArray(2, one, vxINT8_CLASS, vxREAL);
        vxSetCell(vxCreateCellArray(2, one), 0, value);
        vxGetWritableData(value);
    });
    expectBreach("not the module's own");
}

} // namespace
