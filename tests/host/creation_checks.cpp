// SPDX-License-Identifier: BSD-3-Clause
// Creating arrays, and what the script holds afterwards.
#include "tests/host/contract.h"

#include "vx/text.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>

namespace contract {

namespace {

using Dims = std::vector<std::size_t>;

constexpr std::size_t most = std::numeric_limits<std::size_t>::max();

constexpr vxClassID numericClasses[] = {
    vxDOUBLE_CLASS, vxSINGLE_CLASS, vxINT8_CLASS,   vxUINT8_CLASS, vxINT16_CLASS,
    vxUINT16_CLASS, vxINT32_CLASS,  vxUINT32_CLASS, vxINT64_CLASS, vxUINT64_CLASS};
constexpr std::size_t numericCount = std::size(numericClasses);

// The creators that take dimensions, by number.
constexpr std::size_t creatorCount = 2 + 2 * numericCount;

vxClassID classOf(std::size_t creator)
{
    return creator == 0   ? vxCHAR_CLASS
           : creator == 1 ? vxCELL_CLASS
                          : numericClasses[(creator - 2) % numericCount];
}

vxArray* create(std::size_t creator, std::size_t rank, const std::size_t* dims)
{
    if (creator == 0)
        return vxCreateCharArray(rank, dims);
    if (creator == 1)
        return vxCreateCellArray(rank, dims);
    const bool isZero = creator < 2 + numericCount;
    return (isZero ? vxCreateNumericArray : vxCreateUninitNumericArray)(rank, dims,
                                                                        classOf(creator), vxREAL);
}

const struct Shape {
    std::size_t rank;
    Dims given;
    Dims expected;
} shapes[] = {{0, {9}, {0, 0}},          {1, {3}, {3, 1}},         {2, {3, 2}, {3, 2}},
              {3, {3, 2, 4}, {3, 2, 4}}, {2, {1, 1}, {1, 1}},      {2, {0, 5}, {0, 5}},
              {2, {5, 0}, {5, 0}},       {3, {2, 0, 3}, {2, 0, 3}}};

// A cell array of an array of every shape from every creator.
void everyShape(Check& check)
{
    const std::size_t dims[] = {std::size(shapes), creatorCount};
    vxArray* all = vxCreateCellArray(2, dims);
    std::size_t index = 0;
    for (std::size_t creator = 0; creator < creatorCount; ++creator) {
        for (const Shape& shape : shapes) {
            vxArray* array = create(creator, shape.rank, shape.given.data());
            check.expect(vxGetClassID(array) == classOf(creator), "the class of a new array");
            check.expect(dimensions(array) == shape.expected, "the dimensions of a new array");
            const std::size_t size = vxGetElementSize(array) * vxGetNumberOfElements(array);
            if (creator < 2 + numericCount && size > 0) {
                const auto* first = static_cast<const unsigned char*>(vxGetData(array));
                check.expect(
                    std::all_of(first, first + size, [](unsigned char b) { return b == 0; }),
                    "zero elements");
            } else if (size > 0) {
                std::memset(vxGetWritableData(array), 0, size);
            }
            vxSetCell(all, index++, array);
        }
    }
    check.results[1] = all;
}

void everyShapeAgain(Check& check)
{
    const vxArray* all = check.created(1);
    check.expect(dimensions(all) == Dims{std::size(shapes), creatorCount}, "the cell array");
    for (std::size_t i = 0; i < vxGetNumberOfElements(all); ++i) {
        const Shape& shape = shapes[i % std::size(shapes)];
        const std::size_t creator = i / std::size(shapes);
        const vxArray* array = vxGetCell(all, i);
        const std::string which = " from creator " + std::to_string(creator);
        check.expect(vxGetClassID(array) == classOf(creator), "the class" + which);
        check.expect(dimensions(array) == shape.expected, "the dimensions" + which);
    }
}

void rowsOfResults(Check& check)
{
    check.expect(check.nlhs == 5, "nlhs is what the script asks for");
    for (int i = 0; i < 5; ++i)
        check.expect(check.results[i] == nullptr, "slots are null");
    check.results[1] = vxCreateDoubleScalar(-0.5);
    check.results[2] = vxCreateLogicalScalar(true);
    check.results[3] = vxCreateString("temp");
    check.results[4] = vxCreateString("");
}

void rowsOfResultsAgain(Check& check)
{
    check.expect(elements<double>(check.created(1)) == std::vector<double>{-0.5}, "a double");
    check.expect(vxIsLogicalScalar(check.created(2)) && *vxGetLogicals(check.created(2)),
                 "a logical");
    check.expect(vxGetText(check.created(3)) == u"temp", "a text");
    check.expect(dimensions(check.created(3)) == Dims{1, 4}, "a text is a row");
    check.expect(vxGetClassID(check.created(4)) == vxCHAR_CLASS, "an empty text");
    check.expect(dimensions(check.created(4)) == Dims{1, 0}, "an empty text is 1-by-0");
}

void filled(Check& check)
{
    const std::size_t dims[] = {2, 2};
    vxArray* array = vxCreateUninitNumericArray(2, dims, vxINT16_CLASS, vxREAL);
    check.expect(vxGetWritableData(array) == vxGetData(array), "vxGetWritableData is vxGetData");
    const std::int16_t values[] = {1, -2, 3, -4};
    std::memcpy(vxGetWritableData(array), values, sizeof values);
    check.results[1] = array;

    vxArray* text = vxCreateCharArray(2, dims);
    std::memcpy(vxGetWritableData(text), u"acbd", 8);
    check.results[2] = text;
    check.results[3] = vxCreateCharArrayFromBytes(2, dims, "a\0\xC3\xB1");

    const std::size_t large[] = {3000, 3000};
    vxArray* numbers = vxCreateUninitNumericArray(2, large, vxDOUBLE_CLASS, vxREAL);
    auto* elements = static_cast<double*>(vxGetWritableData(numbers));
    for (std::size_t i = 0; i < 9000000; ++i)
        elements[i] = static_cast<double>(i);
    check.results[4] = numbers;
}

void filledAgain(Check& check)
{
    check.expect(dimensions(check.created(1)) == Dims{2, 2}, "the dimensions");
    check.expect(elements<std::int16_t>(check.created(1)) ==
                     std::vector<std::int16_t>{1, -2, 3, -4},
                 "numbers");
    check.expect(vxGetText(check.created(2)) == u"acbd", "text");
    char bytes[5] = {};
    vxGetCharBytes(check.created(3), bytes);
    check.expect(std::memcmp(bytes, "a\0\xC3\xB1", 5) == 0, "text of bytes");
    const auto* elements = static_cast<const double*>(vxGetData(check.created(4)));
    bool isSame = vxGetNumberOfElements(check.created(4)) == 9000000;
    for (std::size_t i = 0; isSame && i < 9000000; ++i)
        isSame = elements[i] == static_cast<double>(i);
    check.expect(isSame, "a large array");
}

void unknownClass(Check& check)
{
    vxArray* array = vxCreateUninitNumericArray(0, nullptr, vxUNKNOWN_CLASS, vxREAL);
    check.expect(dimensions(array) == Dims{0, 0}, "an array of no class");
    check.results[1] = array;
}

void unknownClassAgain(Check& check)
{
    check.expect(dimensions(check.created(1)) == Dims{0, 0}, "an array of no class");
}

void containers(Check& check)
{
    const std::size_t dims[] = {2, 2};
    vxArray* cells = vxCreateCellArray(2, dims);
    vxSetCell(cells, 2, vxCreateString("third"));
    vxSetCell(cells, 1, vxCreateDoubleScalar(1));
    vxSetCell(cells, 1, vxCreateDoubleScalar(2));
    check.expect(dimensions(vxGetCell(cells, 0)) == Dims{0, 0}, "a cell that was never set");

    const char* const names[] = {"b", "a", "never_set"};
    vxArray* made = vxCreateStruct(3, names);
    vxSetField(made, 1, cells);
    vxSetField(made, 0, vxCreateDoubleScalar(3));
    vxSetField(made, 0, vxCreateDoubleScalar(4));
    check.results[1] = made;
    check.results[2] = vxCreateStruct(0, nullptr);
}

void containersAgain(Check& check)
{
    const vxArray* made = check.created(1);
    check.expect(vxGetNumberOfFields(made) == 3, "three fields");
    check.expect(std::strcmp(vxGetFieldName(made, 0), "b") == 0, "fields in their order");
    check.expect(elements<double>(vxGetField(made, 0)) == std::vector<double>{4},
                 "a field set twice");
    check.expect(dimensions(vxGetField(made, 2)) == Dims{0, 0}, "a field that was never set");
    const vxArray* cells = vxGetField(made, 1);
    check.expect(dimensions(cells) == Dims{2, 2}, "cells in a field");
    check.expect(elements<double>(vxGetCell(cells, 1)) == std::vector<double>{2},
                 "a cell set twice");
    check.expect(vxGetText(vxGetCell(cells, 2)) == u"third", "cells in storage order");
    check.expect(dimensions(vxGetCell(cells, 3)) == Dims{0, 0}, "a cell that was never set");
    check.expect(vxGetNumberOfFields(check.created(2)) == 0, "a structure without fields");
}

void noMemory(Check& check)
{
    const Dims absurd[] = {{most},
                           {most, most},
                           {most / 2 + 1, 2},
                           {most / 8 + 1, 8},
                           {1, most / 16},
                           {most / 2, 1, 1},
                           {1U << 30, 1U << 30, 1U << 30}};
    for (std::size_t creator = 0; creator < creatorCount; ++creator) {
        for (const Dims& dims : absurd)
            check.expectNoMemory([&] { create(creator, dims.size(), dims.data()); },
                                 "creator " + std::to_string(creator) + " raises");
    }
}

} // namespace

std::vector<CheckEntry> creationChecks()
{
    return {
        {"NewArraysHaveTheirShape", 2, "returns", everyShape, everyShapeAgain},
        {"ResultsFillEverySlot", 5, "returns", rowsOfResults, rowsOfResultsAgain},
        {"NewArraysHoldWhatIsWritten", 5, "returns", filled, filledAgain},
        {"NewArraysWithoutElementsNeedNoClass", 2, "returns", unknownClass, unknownClassAgain},
        {"NewContainersHoldWhatIsPutIntoThem", 3, "returns", containers, containersAgain},
        {"NewArraysBeyondMeasureRaise", 1, "returns", noMemory},
    };
}

} // namespace contract
