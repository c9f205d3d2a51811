// SPDX-License-Identifier: BSD-3-Clause
// Creating arrays: shapes, contents, owners, and sizes that nothing can hold.
#include "tests/standalone/stand_in_module.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace {

using standalone::Dims;
using standalone::Value;

constexpr std::size_t most = std::numeric_limits<std::size_t>::max();

constexpr vxClassID numericClasses[] = {
    vxDOUBLE_CLASS, vxSINGLE_CLASS, vxINT8_CLASS,   vxUINT8_CLASS, vxINT16_CLASS,
    vxUINT16_CLASS, vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS};

struct Creator {
    const char* name;
    vxClassID classId;
    std::function<vxArray*(std::size_t, const std::size_t*)> create;
};

const std::vector<Creator>& everyCreatorWithDimensions()
{
    static const std::vector<Creator> creators = [] {
        std::vector<Creator> list = {
            {"vxCreateCharArray", vxCHAR_CLASS,
             [](std::size_t rank, const std::size_t* dims) {
                 return vxCreateCharArray(rank, dims);
             }},
            {"vxCreateCellArray", vxCELL_CLASS,
             [](std::size_t rank, const std::size_t* dims) {
                 return vxCreateCellArray(rank, dims);
             }},
        };
        for (const vxClassID classId : numericClasses) {
            list.push_back(
                {"vxCreateNumericArray", classId, [=](std::size_t rank, const std::size_t* dims) {
                     return vxCreateNumericArray(rank, dims, classId, vxREAL);
                 }});
            list.push_back({"vxCreateUninitNumericArray", classId,
                            [=](std::size_t rank, const std::size_t* dims) {
                                return vxCreateUninitNumericArray(rank, dims, classId, vxREAL);
                            }});
        }
        return list;
    }();
    return creators;
}

class Creation : public HostContract {};

TEST_F(Creation, TakesRankZeroForZeroByZeroAndRankOneForAColumn)
{
    const std::size_t lengths[] = {3, 2, 4};
    const struct {
        std::size_t rank;
        const std::size_t* dims;
        Dims expected;
    } cases[] = {
        {0, nullptr, {0, 0}}, {0, lengths, {0, 0}},    {1, lengths, {3, 1}},
        {2, lengths, {3, 2}}, {3, lengths, {3, 2, 4}},
    };
    for (const Creator& creator : everyCreatorWithDimensions()) {
        for (const auto& c : cases) {
            const Value value = created([&] { return creator.create(c.rank, c.dims); });
            EXPECT_EQ(value.dims(), c.expected) << creator.name << ", rank " << c.rank;
            EXPECT_EQ(value.classId(), creator.classId) << creator.name;
        }
    }
}

TEST_F(Creation, KeepsEveryShapeWithoutElements)
{
    for (const Creator& creator : everyCreatorWithDimensions()) {
        for (const Dims& dims : {Dims{0, 5}, Dims{5, 0}, Dims{2, 0, 3}, Dims{most, most, 0}}) {
            const Value value = created([&] { return creator.create(dims.size(), dims.data()); });
            EXPECT_EQ(value.dims(), dims) << creator.name;
            EXPECT_EQ(value.numel(), 0u) << creator.name;
        }
    }
}

TEST_F(Creation, RaisesOutOfMemoryForSizesThatNothingCanHold)
{
    const Dims absurd[] = {{most},
                           {most, most},
                           {most / 2 + 1, 2},
                           {most / 8 + 1, 8},
                           {1, most / 16},
                           {most / 2, 1, 1},
                           {1u << 30, 1u << 30, 1u << 30}};
    for (const Creator& creator : everyCreatorWithDimensions()) {
        for (const Dims& dims : absurd) {
            bool returned = false;
            const auto outcome = inCall([&](const Call& call) {
                call.results[0] = creator.create(dims.size(), dims.data());
                returned = true;
            });
            EXPECT_FALSE(returned) << creator.name;
            ASSERT_TRUE(outcome.raised) << creator.name;
            EXPECT_EQ(outcome.raised->name(), "outOfMemory") << creator.name;
        }
    }
}

TEST_F(Creation, PassesItsOutOfMemoryErrorThroughTheModule)
{
    const std::size_t one[] = {1, 1};
    const std::function<void()> allocating[] = {
        [] { vxCreateDoubleScalar(1); },
        [] { vxCreateLogicalScalar(true); },
        [] { vxCreateString("text"); },
        [&] { vxCreateCharArray(2, one); },
        [&] { vxCreateNumericArray(2, one, vxINT8_CLASS, vxREAL); },
        [&] { vxCreateUninitNumericArray(2, one, vxINT8_CLASS, vxREAL); },
        [&] { vxCreateCellArray(2, one); },
    };
    for (const auto& allocate : allocating) {
        bool unwound = false;
        host.failAllocation(1);
        const auto outcome = inCall([&](const Call&) {
            const std::shared_ptr<void> guard(nullptr, [&](void*) { unwound = true; });
            allocate();
        });
        EXPECT_TRUE(unwound);
        ASSERT_TRUE(outcome.raised);
        EXPECT_EQ(outcome.raised->name(), "outOfMemory");
    }
    EXPECT_EQ(host.liveArrays(), 0u);
}

TEST_F(Creation, MakesScalars)
{
    EXPECT_EQ(created([] { return vxCreateDoubleScalar(-0.5); }), Value::number(-0.5));
    EXPECT_EQ(created([] { return vxCreateLogicalScalar(true); }), Value::logical(true));
    EXPECT_EQ(created([] { return vxCreateLogicalScalar(false); }), Value::logical(false));
}

TEST_F(Creation, MakesARowOfAStringAndOneByZeroOfAnEmptyOne)
{
    EXPECT_EQ(created([] { return vxCreateString("temp"); }), Value::text({1, 4}, u"temp"));
    EXPECT_EQ(created([] { return vxCreateString(""); }), Value::empty(vxCHAR_CLASS, {1, 0}));
    EXPECT_EQ(created([] { return vxCreateString("h\xC3\xB6he"); }),
              Value::text({1, 4}, u"h\u00F6he"));
}

TEST_F(Creation, StartsNumbersAndCharactersAtZero)
{
    const std::size_t dims[] = {7, 3};
    for (const vxClassID classId : numericClasses) {
        const Value value = created([&] { return vxCreateNumericArray(2, dims, classId, vxREAL); });
        const auto* bytes = static_cast<const unsigned char*>(vxGetData(value.array()));
        const std::size_t size = 21 * vxGetElementSize(value.array());
        EXPECT_TRUE(std::all_of(bytes, bytes + size, [](unsigned char b) { return b == 0; }))
            << value;
        EXPECT_FALSE(value.isComplex());
    }
    EXPECT_EQ(created([&] { return vxCreateCharArray(2, dims); }).toUtf16(),
              std::u16string(21, u'\0'));
}

TEST_F(Creation, TakesTheUnknownClassForAnArrayWithoutElements)
{
    const Value value =
        created([] { return vxCreateUninitNumericArray(0, nullptr, vxUNKNOWN_CLASS, vxREAL); });
    EXPECT_EQ(value.classId(), vxUNKNOWN_CLASS);
    EXPECT_EQ(value.dims(), (Dims{0, 0}));
}

TEST_F(Creation, GivesStorageToFillThatIsTheArraysOwn)
{
    const std::size_t dims[] = {2, 2};
    const Value value = created([&] {
        vxArray* array = vxCreateUninitNumericArray(2, dims, vxINT16_CLASS, vxREAL);
        EXPECT_EQ(vxGetWritableData(array), vxGetData(array));
        const std::int16_t elements[] = {1, -2, 3, -4};
        std::memcpy(vxGetWritableData(array), elements, sizeof elements);
        return array;
    });
    EXPECT_EQ(value, Value::numeric<std::int16_t>({2, 2}, {1, -2, 3, -4}));
}

TEST_F(Creation, PutsCellsInStorageOrderAndLeavesTheOthersEmpty)
{
    const std::size_t dims[] = {2, 2};
    const Value value = created([&] {
        vxArray* cells = vxCreateCellArray(2, dims);
        vxSetCell(cells, 2, vxCreateString("third"));
        vxSetCell(cells, 1, vxCreateDoubleScalar(2));
        return cells;
    });
    EXPECT_EQ(value, Value::cell({2, 2}, {Value::empty(), 2, "third", Value::empty()}));
}

TEST_F(Creation, LetsACellBeSetAgain)
{
    const std::size_t dims[] = {1, 1};
    const Value value = created([&] {
        vxArray* cells = vxCreateCellArray(2, dims);
        vxSetCell(cells, 0, vxCreateDoubleScalar(1));
        vxSetCell(cells, 0, vxCreateDoubleScalar(2));
        return cells;
    });
    EXPECT_EQ(value.cells().at(0), Value(2));
    EXPECT_EQ(host.liveArrays(), 2u); // the cell array and what it holds now
}

TEST_F(Creation, EndsWithTheCallWhatWasNotReturned)
{
    const std::size_t one[] = {1, 1};
    const auto outcome = inCall([&](const Call& call) {
        vxCreateString("left");
        vxSetCell(vxCreateCellArray(2, one), 0, vxCreateDoubleScalar(1));
        call.results[0] = vxCreateDoubleScalar(1);
    });
    EXPECT_EQ(outcome.results.size(), 1u);
    EXPECT_EQ(host.arraysCreated(), 4u);
    EXPECT_EQ(host.liveArrays(), 1u);
}

TEST_F(Creation, EndsWithTheCallEverythingWhenAnErrorPasses)
{
    const auto outcome = inCall([](const Call& call) {
        call.results[0] = vxCreateDoubleScalar(1);
        vxCreateString("left");
        throw std::runtime_error("an error");
    });
    EXPECT_TRUE(outcome.results.empty());
    EXPECT_EQ(host.liveArrays(), 0u);
}

} // namespace
