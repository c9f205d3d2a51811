// SPDX-License-Identifier: BSD-3-Clause
// Creating arrays. Each belongs to the call from its creation.
#include "hosts/minimal/array.h"
#include "hosts/minimal/call.h"

#include "hosts/memory/large_blocks.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <new>

namespace minimal {

namespace {

// The product, 0 when any dimension is; what no memory can hold is out of memory at once.
size_t productOf(const std::vector<size_t>& dims)
{
    if (std::find(dims.begin(), dims.end(), size_t{0}) != dims.end())
        return 0;
    size_t product = 1;
    for (const size_t length : dims) {
        if (length > PTRDIFF_MAX / product)
            throw std::bad_alloc();
        product *= length;
    }
    return product;
}

std::unique_ptr<void, FreeElements> makeElements(size_t count, size_t size, Elements elements)
{
    if (count == 0 || size == 0)
        return nullptr;
    if (count > PTRDIFF_MAX / size)
        throw std::bad_alloc();
    std::unique_ptr<void, FreeElements> block(
        elements == Elements::zeros ? std::calloc(count, size) : std::malloc(count * size));
    if (block == nullptr)
        throw std::bad_alloc();
    hosts::memory::adviseHugePages(block.get(), count * size);
    return block;
}

// The interpreter's characters are bytes here, so that each becomes one unit.
vxArray* createText(size_t rank, const size_t* dims, const char* bytes, bool isSigned)
{
    const Value array = makeArray(vxCHAR_CLASS, rank, dims, Elements::anything);
    auto* units = static_cast<char16_t*>(array->elements.get());
    for (size_t i = 0; i < array->count; ++i)
        units[i] = static_cast<char16_t>(isSigned ? static_cast<signed char>(bytes[i])
                                                  : static_cast<unsigned char>(bytes[i]));
    return keepForCall(array);
}

template <class Element> vxArray* createScalar(vxClassID classId, Element value)
{
    const size_t one[] = {1, 1};
    const Value array = makeArray(classId, 2, one, Elements::anything);
    std::memcpy(array->elements.get(), &value, sizeof value);
    return keepForCall(array);
}

} // namespace

Value makeArray(vxClassID classId, size_t rank, const size_t* dims, Elements elements)
{
    auto array = std::make_shared<vxArray>();
    array->classId = classId;
    if (rank < 2)
        array->dims = {rank == 0 ? 0 : dims[0], rank};
    else
        array->dims.assign(dims, dims + rank);
    array->count = productOf(array->dims);
    array->elements = makeElements(array->count, elementSize(classId), elements);
    if (classId == vxCELL_CLASS) {
        if (array->count > array->contents.max_size())
            throw std::bad_alloc();
        array->contents.resize(array->count);
    }
    return array;
}

} // namespace minimal

using minimal::Elements;
using minimal::keepForCall;
using minimal::makeArray;

vxArray* vxCreateDoubleScalar(double value) { return minimal::createScalar(vxDOUBLE_CLASS, value); }

vxArray* vxCreateLogicalScalar(bool value) { return minimal::createScalar(vxLOGICAL_CLASS, value); }

vxArray* vxCreateString(const char* text)
{
    const size_t dims[] = {1, std::strlen(text)};
    return minimal::createText(2, dims, text, false);
}

vxArray* vxCreateCharArray(size_t rank, const size_t* dims)
{
    return keepForCall(makeArray(vxCHAR_CLASS, rank, dims, Elements::zeros));
}

vxArray* vxCreateCharArrayFromBytes(size_t rank, const size_t* dims, const char* bytes)
{
    return minimal::createText(rank, dims, bytes, true);
}

vxArray* vxCreateNumericArray(size_t rank, const size_t* dims, vxClassID classId, vxComplexity)
{
    return keepForCall(makeArray(classId, rank, dims, Elements::zeros));
}

vxArray* vxCreateUninitNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                                    vxComplexity)
{
    return keepForCall(makeArray(classId, rank, dims, Elements::anything));
}
