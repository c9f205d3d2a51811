// SPDX-License-Identifier: BSD-3-Clause
// Creating arrays, and passing them to the interpreter.
#include "array.h"
#include "call.h"

#include <octave/ov-str-mat.h>

#include <algorithm>
#include <array>
#include <climits>
#include <cstring>
#include <new>

namespace hosts::oct {

vxArray* addArray(const ElementClass& kind, size_t rank, const size_t* dims)
{
    const size_t stored = std::max<size_t>(rank, 2);
    if (stored > INT_MAX)
        throw std::bad_alloc();
    std::array<size_t, 2> two;
    size_t* lengths = stored == 2
                          ? two.data()
                          : static_cast<size_t*>(Call::current().allocate(stored * sizeof(size_t)));
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
    if (stored == 2)
        std::copy(two.begin(), two.end(), array->twoDims);
    array->dims = stored == 2 ? array->twoDims : lengths;
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

namespace {

// The element of a scalar stays in the array; larger storage belongs to the interpreter from the
// start, so that an error cannot leak it.
vxArray* addNumeric(size_t rank, const size_t* dims, vxClassID classId)
{
    // An array without elements needs no class; it gets the interpreter's default.
    const ElementClass& asked = elementClass(classId);
    const ElementClass& kind = asked.scalar ? asked : elementClass(vxDOUBLE_CLASS);
    vxArray* array = addArray(kind, rank, dims);
    if (array->count == 1) {
        array->data = array->element;
        return array;
    }
    const dim_vector lengths = dimensions(*array);
    void* block = kind.allocate(array->count);
    array->held.emplace(kind.adopt(block, lengths));
    array->data = block;
    return array;
}

// For a million short rows, the interpreter's allocations are most of the cost; this way makes
// few.
constexpr size_t shortRow = 4096;

octave_value shortTextRow(const char* bytes, size_t length)
{
    static dim_vector lengths(1, 1);
    lengths.xelem(1) = static_cast<octave_idx_type>(length);
    charNDArray row(lengths);
    if (length > 0)
        std::memcpy(row.fortran_vec(), bytes, length);
    // Made by the interpreter's library: what is made here has its virtual functions here, and
    // cannot be destroyed once gridio.oct is unloaded.
    return octave_value(row, '\'');
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
    void* bytes = text.kind->allocate(text.count);
    narrowText(static_cast<const char16_t*>(text.data), text.count, static_cast<char*>(bytes));
    return text.kind->adopt(bytes, lengths);
}

} // namespace

octave_value toValue(vxArray& array)
{
    switch (array.kind->id) {
    case vxCELL_CLASS:
    case vxSTRUCT_CLASS:
        return contentsValue(array);
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
    return vxCreateCharArrayFromBytes(2, dims, text);
}

vxArray* vxCreateCharArrayFromBytes(size_t rank, const size_t* dims, const char* bytes)
{
    if (rank == 2 && dims[0] == 1 && dims[1] < hosts::oct::shortRow) {
        vxArray* row = Call::current().add(elementClass(vxCHAR_CLASS), dims[1]);
        row->source = &row->held.emplace(hosts::oct::shortTextRow(bytes, dims[1]));
        return row;
    }
    vxArray* array = addArray(elementClass(vxCHAR_CLASS), rank, dims);
    const dim_vector lengths = hosts::oct::dimensions(*array);
    void* storage = array->kind->allocate(array->count);
    if (array->count > 0)
        std::memcpy(storage, bytes, array->count);
    array->source = &array->held.emplace(array->kind->adopt(storage, lengths));
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
