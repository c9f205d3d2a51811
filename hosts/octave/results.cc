// SPDX-License-Identifier: BSD-3-Clause
// Creating arrays, and handing them to the interpreter.
#include "array.h"
#include "call.h"
#include "result_memory.h"

#include <octave/Cell.h>

#include <algorithm>
#include <climits>
#include <cstring>
#include <new>

namespace hosts::oct {

namespace {

// A new array with its dimensions: rank 0 is 0-by-0, rank 1 a column.
vxArray* addArray(const ElementClass& kind, size_t rank, const size_t* dims)
{
    const size_t stored = std::max<size_t>(rank, 2);
    if (stored > INT_MAX)
        throw std::bad_alloc();
    auto* lengths = static_cast<size_t*>(Call::current().allocate(stored * sizeof(size_t)));
    std::fill(lengths, lengths + stored, rank == 0 ? 0U : 1U);
    std::copy(dims, dims + rank, lengths);

    size_t count = 1;
    bool isEmpty = false;
    for (size_t i = 0; i < stored; ++i) {
        if (lengths[i] > PTRDIFF_MAX)
            throw std::bad_alloc();
        if (lengths[i] == 0)
            isEmpty = true;
        else if (count > PTRDIFF_MAX / lengths[i])
            throw std::bad_alloc();
        else
            count *= lengths[i];
    }
    vxArray* array = Call::current().add(kind, isEmpty ? 0 : count);
    array->dims = lengths;
    array->rank = stored;
    return array;
}

dim_vector dimensions(const vxArray& array)
{
    dim_vector lengths = dim_vector::alloc(static_cast<int>(array.rank));
    for (size_t i = 0; i < array.rank; ++i)
        lengths(static_cast<int>(i)) = static_cast<octave_idx_type>(array.dims[i]);
    return lengths;
}

// A scalar's element stays in the array; more become the interpreter's at once, so that an error
// can not leak them.
vxArray* addNumeric(size_t rank, const size_t* dims, vxClassID classId)
{
    // An array without elements needs no class; it is then the interpreter's usual one.
    const ElementClass& asked = elementClass(classId);
    const ElementClass& kind = asked.scalar ? asked : elementClass(vxDOUBLE_CLASS);
    vxArray* array = addArray(kind, rank, dims);
    if (array->count == 1) {
        array->data = array->element;
        return array;
    }
    const dim_vector lengths = dimensions(*array);
    void* block = newElements(array->count, kind.size);
    array->held.emplace(kind.adopt(block, lengths));
    array->data = block;
    return array;
}

template <class Element> vxArray* addScalar(vxClassID classId, Element value)
{
    vxArray* array = Call::current().add(elementClass(classId), size_t{1});
    ::new (static_cast<void*>(array->element)) Element(value);
    array->data = array->element;
    return array;
}

octave_value narrowed(const vxArray& text)
{
    const dim_vector lengths = dimensions(text);
    void* bytes = newElements(text.count, sizeof(char));
    narrowText(static_cast<const char16_t*>(text.data), text.count, static_cast<char*>(bytes));
    return text.kind->adopt(bytes, lengths);
}

octave_value cellValue(const vxArray& cells)
{
    Cell values(dimensions(cells));
    for (size_t i = 0; i < cells.count; ++i)
        if (cells.cells[i])
            values(static_cast<octave_idx_type>(i)) = toValue(*cells.cells[i]);
    return octave_value(values);
}

} // namespace

octave_value toValue(vxArray& array)
{
    switch (array.kind->id) {
    case vxCELL_CLASS:
        return cellValue(array);
    case vxCHAR_CLASS:
        return array.data || !array.held ? narrowed(array) : *array.held;
    default:
        return array.held ? *array.held : array.kind->scalar(array.element);
    }
}

} // namespace hosts::oct

using hosts::oct::addArray;
using hosts::oct::addNumeric;
using hosts::oct::addScalar;
using hosts::oct::Call;
using hosts::oct::elementClass;

vxArray* vxCreateDoubleScalar(double value) { return addScalar(vxDOUBLE_CLASS, value); }

vxArray* vxCreateLogicalScalar(bool value) { return addScalar(vxLOGICAL_CLASS, value); }

vxArray* vxCreateString(const char* text)
{
    const size_t dims[] = {1, std::strlen(text)};
    vxArray* array = addArray(elementClass(vxCHAR_CLASS), 2, dims);
    const dim_vector lengths = hosts::oct::dimensions(*array);
    void* bytes = hosts::oct::newElements(array->count, sizeof(char));
    std::memcpy(bytes, text, array->count);
    array->source = &array->held.emplace(array->kind->adopt(bytes, lengths));
    return array;
}

vxArray* vxCreateCharArray(size_t rank, const size_t* dims)
{
    vxArray* array = addArray(elementClass(vxCHAR_CLASS), rank, dims);
    array->data = Call::current().allocateZeros(array->count, sizeof(char16_t));
    return array;
}

vxArray* vxCreateNumericArray(size_t rank, const size_t* dims, vxClassID classId, vxComplexity)
{
    vxArray* array = addNumeric(rank, dims, classId);
    std::memset(array->data, 0, array->count * array->kind->size);
    return array;
}

vxArray* vxCreateUninitNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                                    vxComplexity)
{
    return addNumeric(rank, dims, classId);
}

vxArray* vxCreateCellArray(size_t rank, const size_t* dims)
{
    vxArray* array = addArray(elementClass(vxCELL_CLASS), rank, dims);
    array->cells =
        static_cast<vxArray**>(Call::current().allocateZeros(array->count, sizeof(vxArray*)));
    return array;
}

void vxSetCell(vxArray* cells, size_t index, vxArray* value) { cells->cells[index] = value; }
