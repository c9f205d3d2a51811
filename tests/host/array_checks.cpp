// SPDX-License-Identifier: BSD-3-Clause
// Looking at what a script passes.
#include "tests/host/contract.h"

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

namespace contract {

namespace {

using Dims = std::vector<std::size_t>;

struct ClassCase {
    Sample sample;
    vxClassID classId;
    std::size_t elementSize;
};

// Of the samples that have two rows and one column.
constexpr ClassCase everyClass[] = {
    {doubles, vxDOUBLE_CLASS, 8}, {singles, vxSINGLE_CLASS, 4}, {int8s, vxINT8_CLASS, 1},
    {uint8s, vxUINT8_CLASS, 1},   {int16s, vxINT16_CLASS, 2},   {uint16s, vxUINT16_CLASS, 2},
    {int32s, vxINT32_CLASS, 4},   {uint32s, vxUINT32_CLASS, 4}, {int64s, vxINT64_CLASS, 8},
    {uint64s, vxUINT64_CLASS, 8}, {chars, vxCHAR_CLASS, 2},     {logicals, vxLOGICAL_CLASS, 1},
    {cells, vxCELL_CLASS, 0},     {structs, vxSTRUCT_CLASS, 0}};

void classes(Check& check)
{
    for (const ClassCase& c : everyClass) {
        const vxArray* array = check.sample(c.sample);
        const std::string which = " of class " + std::to_string(c.classId);
        check.expect(vxGetClassID(array) == c.classId, "vxGetClassID" + which);
        check.expect(vxGetElementSize(array) == c.elementSize, "vxGetElementSize" + which);
        check.expect(vxGetNumberOfElements(array) == 2, "vxGetNumberOfElements" + which);
        check.expect(!vxIsEmpty(array), "vxIsEmpty" + which);
        check.expect(dimensions(array) == Dims{2, 1}, "vxGetDimensions" + which);
        check.expect(!vxIsComplex(array), "vxIsComplex" + which);
    }
    check.expect(vxGetClassID(check.sample(other)) == vxUNKNOWN_CLASS, "class of anything else");
    check.expect(vxGetElementSize(check.sample(other)) == 0, "element size of anything else");
}

void storage(Check& check)
{
    for (const ClassCase& c : everyClass) {
        if (c.elementSize == 0)
            continue;
        const void* data = vxGetData(check.sample(c.sample));
        const std::string which = " of class " + std::to_string(c.classId);
        check.expect(data != nullptr, "vxGetData" + which);
        check.expect(reinterpret_cast<std::uintptr_t>(data) % c.elementSize == 0,
                     "alignment" + which);
    }
    check.expect(elements<double>(check.sample(doubles)) == std::vector<double>{1, 2}, "doubles");
    check.expect(elements<float>(check.sample(singles)) == std::vector<float>{1, 2}, "singles");
    check.expect(elements<std::uint16_t>(check.sample(uint16s)) == std::vector<std::uint16_t>{1, 2},
                 "uint16s");
    check.expect(elements<std::int64_t>(check.sample(extremes)) ==
                     std::vector<std::int64_t>{std::numeric_limits<std::int64_t>::min(),
                                               std::numeric_limits<std::int64_t>::max()},
                 "the ends of int64");
}

void emptiness(Check& check)
{
    const struct {
        Sample sample;
        vxClassID classId;
        Dims dims;
    } cases[] = {{emptyDouble, vxDOUBLE_CLASS, {0, 3}},
                 {emptyChar, vxCHAR_CLASS, {0, 0}},
                 {emptyInt8, vxINT8_CLASS, {2, 0, 5}},
                 {emptyCell, vxCELL_CLASS, {3, 0}}};
    for (const auto& c : cases) {
        const vxArray* array = check.sample(c.sample);
        const std::string which = " of an empty array of class " + std::to_string(c.classId);
        check.expect(vxGetClassID(array) == c.classId, "vxGetClassID" + which);
        check.expect(vxIsEmpty(array), "vxIsEmpty" + which);
        check.expect(vxGetNumberOfElements(array) == 0, "vxGetNumberOfElements" + which);
        check.expect(dimensions(array) == c.dims, "vxGetDimensions" + which);
    }
}

void order(Check& check)
{
    const vxArray* array = check.sample(cube);
    check.expect(dimensions(array) == Dims{2, 3, 2}, "the cube's dimensions");
    check.expect(elements<std::int32_t>(array) ==
                     std::vector<std::int32_t>{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12},
                 "the first dimension varies fastest");
}

void fullElements(Check& check)
{
    check.expect(dimensions(check.sample(sparse)) == Dims{2, 3}, "the sparse array's dimensions");
    check.expect(elements<double>(check.sample(sparse)) == std::vector<double>{0, 0, 5, 0, 0, 6},
                 "every element of a sparse array");
    check.expect(dimensions(check.sample(range)) == Dims{1, 5}, "the range's dimensions");
    check.expect(elements<double>(check.sample(range)) == std::vector<double>{1, 2, 3, 4, 5},
                 "every element of a range");
}

void realPart(Check& check)
{
    const vxArray* array = check.sample(complexRow);
    check.expect(vxIsComplex(array), "vxIsComplex");
    check.expect(vxGetClassID(array) == vxDOUBLE_CLASS, "a complex array's class");
    check.expect(elements<double>(array) == std::vector<double>{1, 2, 3}, "the real part");
}

void lifetime(Check& check)
{
    for (const Sample sample : {doubles, complexRow, sparse, range, chars}) {
        const vxArray* array = check.sample(sample);
        const void* data = vxGetData(array);
        const std::size_t* dims = vxGetDimensions(array);
        for (int i = 0; i < 100; ++i)
            vxCreateDoubleScalar(i);
        check.expect(vxGetData(array) == data, "vxGetData stays");
        check.expect(vxGetDimensions(array) == dims, "vxGetDimensions stays");
    }
}

void logicalArrays(Check& check)
{
    check.expect(vxIsLogicalScalar(check.sample(trueScalar)), "true is a logical scalar");
    for (const Sample sample : {trueRow, doubles, uint8s, chars, emptyDouble, cells, other})
        check.expect(!vxIsLogicalScalar(check.sample(sample)),
                     "sample " + std::to_string(sample) + " is no logical scalar");
    const vxArray* array = check.sample(logicals);
    unsigned char bytes[2] = {};
    std::memcpy(bytes, vxGetLogicals(array), sizeof bytes);
    check.expect(bytes[0] != 0 && bytes[1] == 0, "vxGetLogicals");
    check.expect(vxGetLogicals(array) == vxGetData(array), "vxGetLogicals is vxGetData");
}

void numbers(Check& check)
{
    constexpr double infinity = std::numeric_limits<double>::infinity();
    check.expect(vxIsNaN(std::nan("")) && !vxIsInf(std::nan("")), "NaN");
    check.expect(vxIsInf(infinity) && vxIsInf(-infinity) && !vxIsNaN(infinity), "infinity");
    for (const double value : {0.0, -1.5, std::numeric_limits<double>::max()})
        check.expect(!vxIsNaN(value) && !vxIsInf(value), "a finite number");
}

void cellContents(Check& check)
{
    const vxArray* array = check.sample(nestedCells);
    check.expect(elements<double>(vxGetCell(array, 0)) == std::vector<double>{1}, "first cell");
    const vxArray* inner = vxGetCell(array, 1);
    check.expect(vxGetClassID(inner) == vxCELL_CLASS, "a cell array in a cell");
    check.expect(elements<double>(vxGetCell(inner, 0)) == std::vector<double>{3}, "a cell in it");
    check.expect(vxGetClassID(vxGetCell(array, 2)) == vxCHAR_CLASS, "text in a cell");
    const vxArray* empty = vxGetCell(array, 3);
    check.expect(vxGetClassID(empty) == vxDOUBLE_CLASS && dimensions(empty) == Dims{0, 0},
                 "an empty cell is a 0-by-0 double");
}

void fieldContents(Check& check)
{
    const vxArray* array = check.sample(structure);
    check.expect(vxGetNumberOfElements(array) == 1, "one structure");
    check.expect(vxGetNumberOfFields(array) == 3, "vxGetNumberOfFields");
    const char* const names[] = {"depth", "name", "inner"};
    for (std::size_t i = 0; i < 3; ++i)
        check.expect(std::strcmp(vxGetFieldName(array, i), names[i]) == 0, names[i]);
    check.expect(elements<float>(vxGetField(array, 0)) == std::vector<float>{1, 2}, "a number");
    check.expect(vxGetNumberOfElements(vxGetField(array, 1)) == 4, "text in a field");
    const vxArray* inner = vxGetField(array, 2);
    check.expect(vxGetNumberOfFields(inner) == 1 && vxIsLogicalScalar(vxGetField(inner, 0)),
                 "a structure in a field");
    check.expect(vxGetNumberOfFields(check.sample(structs)) == 2, "fields of several structures");
    check.expect(std::strcmp(vxGetFieldName(check.sample(structs), 1), "b") == 0,
                 "the name of a field of several structures");
}

} // namespace

std::vector<CheckEntry> arrayChecks()
{
    return {
        {"ArgumentsHaveTheirClassSizeAndDimensions", 1, "returns", classes},
        {"ArgumentsHandOutTheirElements", 1, "returns", storage},
        {"ArgumentsMayBeEmptyInEveryShape", 1, "returns", emptiness},
        {"ArgumentsListTheFirstDimensionFastest", 1, "returns", order},
        {"ArgumentsShowEveryElementOfASparseArray", 1, "returns", fullElements},
        {"ArgumentsShowTheRealPartOfAComplexArray", 1, "returns", realPart},
        {"ArgumentsStayWhereTheyAreDuringTheCall", 1, "returns", lifetime},
        {"LogicalsTakeAByteEach", 1, "returns", logicalArrays},
        {"NumbersAreNaNOrInfinite", 1, "returns", numbers},
        {"CellsShowWhatTheyHold", 1, "returns", cellContents},
        {"StructuresShowTheirFields", 1, "returns", fieldContents},
    };
}

} // namespace contract
