// SPDX-License-Identifier: BSD-3-Clause
// Arrays: storage, inspection and creation.
#include "hosts/standalone/array.h"

#include "hosts/standalone/creation.h"
#include "hosts/standalone/ledger.h"
#include "hosts/standalone/text.h"

#include "hosts/memory/large_blocks.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <new>
#include <utility>

static_assert(sizeof(bool) == 1, "logical elements take one byte");

vxArray::vxArray() { ++standalone::ledger().liveArrays; }
vxArray::~vxArray() { --standalone::ledger().liveArrays; }

namespace standalone {

namespace {

// Rank 0 is 0-by-0, rank 1 a column.
std::vector<std::size_t> fullDims(std::size_t rank, const std::size_t* dims)
{
    if (rank == 0)
        return {0, 0};
    if (rank == 1)
        return {dims[0], 1};
    return {dims, dims + rank};
}

std::size_t productOf(const std::vector<std::size_t>& dims)
{
    if (std::find(dims.begin(), dims.end(), std::size_t{0}) != dims.end())
        return 0; // whatever the others are
    std::size_t product = 1;
    for (const std::size_t length : dims) {
        if (length > std::numeric_limits<std::size_t>::max() / product)
            throw OutOfMemory();
        product *= length;
    }
    return product;
}

void* allocate(std::size_t bytes)
{
    const std::size_t alignment = hosts::memory::alignmentOf(bytes);
    if (alignment == 0 || bytes > PTRDIFF_MAX - alignment)
        return std::malloc(bytes);
    return std::aligned_alloc(alignment, (bytes + alignment - 1) / alignment * alignment);
}

// Uninitialised elements are not touched here: for a large array, the page faults cost more than
// the read that fills it.
Elements makeElements(std::size_t bytes, Contents contents)
{
    if (bytes == 0)
        return nullptr;
    Elements elements(contents == Contents::zeros ? std::calloc(1, bytes) : allocate(bytes));
    if (elements == nullptr)
        throw OutOfMemory();
    hosts::memory::adviseHugePages(elements.get(), bytes);
    const auto pattern = ledger().pattern;
    if (contents == Contents::anything && pattern)
        std::memset(elements.get(), *pattern, bytes);
    return elements;
}

vxArray* createNumeric(std::size_t rank, const std::size_t* dims, vxClassID classId,
                       vxComplexity complexity, Contents contents)
{
    return createForCall([&] {
        ArrayOwner array = makeArray(classId, rank, dims, contents);
        if (!isNumericClass(classId) && !(classId == vxUNKNOWN_CLASS && array->count == 0))
            ledger().noteBreach("a numeric array of a class that is not numeric was created");
        if (complexity == vxCOMPLEX)
            array->imaginary = makeElements(array->count * elementSize(classId), Contents::zeros);
        return array;
    });
}

template <class T> vxArray* createScalar(vxClassID classId, T value)
{
    return createForCall([classId, value] {
        const std::size_t one[] = {1, 1};
        ArrayOwner array = makeArray(classId, 2, one, Contents::zeros);
        std::memcpy(array->elements.get(), &value, sizeof value);
        return array;
    });
}

} // namespace

std::size_t elementSize(vxClassID classId) noexcept
{
    switch (classId) {
    case vxLOGICAL_CLASS:
    case vxINT8_CLASS:
    case vxUINT8_CLASS:
        return 1;
    case vxCHAR_CLASS:
    case vxINT16_CLASS:
    case vxUINT16_CLASS:
        return 2;
    case vxSINGLE_CLASS:
    case vxINT32_CLASS:
    case vxUINT32_CLASS:
        return 4;
    case vxDOUBLE_CLASS:
    case vxINT64_CLASS:
    case vxUINT64_CLASS:
        return 8;
    case vxUNKNOWN_CLASS:
    case vxCELL_CLASS:
    case vxSTRUCT_CLASS:
        break;
    }
    return 0;
}

bool isNumericClass(vxClassID classId) noexcept { return classId >= vxDOUBLE_CLASS; }

ArrayOwner makeArray(vxClassID classId, std::size_t rank, const std::size_t* dims,
                     Contents contents)
{
    auto array = std::make_shared<vxArray>();
    array->classId = classId;
    array->dims = fullDims(rank, dims);
    array->count = productOf(array->dims);
    const std::size_t bytes = ledger().checkedBytes(array->count, elementSize(classId));
    array->elements = makeElements(bytes, contents);
    if (classId == vxCELL_CLASS) {
        static_cast<void>(ledger().checkedBytes(array->count, sizeof(ArrayOwner)));
        array->cells.resize(array->count);
    }
    return array;
}

} // namespace standalone

using standalone::Contents;
using standalone::ledger;

vxClassID vxGetClassID(const vxArray* array) { return array->classId; }

bool vxIsEmpty(const vxArray* array) { return array->count == 0; }

size_t vxGetNumberOfElements(const vxArray* array) { return array->count; }

size_t vxGetNumberOfDimensions(const vxArray* array) { return array->dims.size(); }

const size_t* vxGetDimensions(const vxArray* array) { return array->dims.data(); }

size_t vxGetElementSize(const vxArray* array) { return standalone::elementSize(array->classId); }

const void* vxGetData(const vxArray* array) { return array->elements.get(); }

void* vxGetWritableData(vxArray* array)
{
    if (!array->writable)
        ledger().noteBreach(
            "writable data of an array that is not the module's own were asked for");
    return array->elements.get();
}

bool vxIsLogicalScalar(const vxArray* array)
{
    return array->classId == vxLOGICAL_CLASS && array->count == 1;
}

const bool* vxGetLogicals(const vxArray* array)
{
    if (array->classId != vxLOGICAL_CLASS)
        ledger().noteBreach("logical elements of an array that is not logical were asked for");
    return static_cast<const bool*>(array->elements.get());
}

bool vxIsComplex(const vxArray* array) { return array->imaginary != nullptr; }

bool vxIsNaN(double value) { return std::isnan(value); }

bool vxIsInf(double value) { return std::isinf(value); }

vxArray* vxCreateDoubleScalar(double value)
{
    return standalone::createScalar(vxDOUBLE_CLASS, value);
}

vxArray* vxCreateLogicalScalar(bool value)
{
    return standalone::createScalar(vxLOGICAL_CLASS, value);
}

vxArray* vxCreateString(const char* text)
{
    return standalone::createForCall([text] {
        const std::u16string units = standalone::toUtf16(text);
        const size_t dims[] = {1, units.size()};
        auto array = standalone::makeArray(vxCHAR_CLASS, 2, dims, Contents::anything);
        if (!units.empty())
            std::memcpy(array->elements.get(), units.data(), units.size() * sizeof(char16_t));
        return array;
    });
}

vxArray* vxCreateCharArray(size_t rank, const size_t* dims)
{
    return standalone::createForCall(
        [=] { return standalone::makeArray(vxCHAR_CLASS, rank, dims, Contents::zeros); });
}

vxArray* vxCreateCharArrayFromBytes(size_t rank, const size_t* dims, const char* bytes)
{
    return standalone::createForCall([=] {
        auto array = standalone::makeArray(vxCHAR_CLASS, rank, dims, Contents::anything);
        std::transform(
            bytes, bytes + array->count, static_cast<char16_t*>(array->elements.get()),
            [](char byte) { return static_cast<char16_t>(static_cast<signed char>(byte)); });
        return array;
    });
}

vxArray* vxCreateNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                              vxComplexity complexity)
{
    return standalone::createNumeric(rank, dims, classId, complexity, Contents::zeros);
}

vxArray* vxCreateUninitNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                                    vxComplexity complexity)
{
    return standalone::createNumeric(rank, dims, classId, complexity, Contents::anything);
}
