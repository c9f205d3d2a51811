// SPDX-License-Identifier: BSD-3-Clause
// The module's access to arguments, which are values of the interpreter. Each conversion is made
// once, on demand.
#include "array.h"
#include "call.h"

#include <algorithm>

namespace hosts::oct {

namespace {

constexpr size_t oneByOne[] = {1, 1};

// An object counts as one element, whatever its own method would return.
bool isCounted(const ElementClass& kind) { return kind.id != vxUNKNOWN_CLASS; }

} // namespace

vxArray& examined(const vxArray* array)
{
    vxArray& result = *const_cast<vxArray*>(array);
    if (!result.kind) {
        const ElementClass& kind = elementClass(*result.source);
        result.count = isCounted(kind) ? static_cast<size_t>(result.source->numel()) : 1;
        result.kind = &kind;
    }
    return result;
}

size_t* dimensionStorage(vxArray& array, size_t rank)
{
    return rank == 2 ? array.twoDims
                     : static_cast<size_t*>(Call::current().allocate(rank * sizeof(size_t)));
}

void loadDimensions(vxArray& array)
{
    if (array.dims)
        return;
    if (!array.source || !isCounted(*array.kind)) {
        array.dims = oneByOne;
        array.rank = 2;
        return;
    }
    const dim_vector lengths = array.source->dims();
    const auto rank = static_cast<size_t>(lengths.ndims());
    size_t* dims = dimensionStorage(array, rank);
    for (size_t i = 0; i < rank; ++i)
        dims[i] = static_cast<size_t>(lengths(static_cast<int>(i)));
    array.dims = dims;
    array.rank = rank;
}

void loadElements(vxArray& array)
{
    if (array.data || array.count == 0 || array.kind->size == 0)
        return;
    if (array.kind->id == vxCHAR_CLASS) {
        textUnits(array);
        return;
    }
    const octave_value* value = array.source;
    const void* elements = array.kind->share(*value);
    if (!elements && !value->is_scalar_type()) {
        // The interpreter returns a single element as a scalar.
        value = &array.held.emplace(array.kind->full(*value));
        elements = array.kind->share(*value);
    }
    if (!elements) {
        array.kind->readScalar(*value, array.element);
        elements = array.element;
    }
    // The elements of an argument are accessible only as const.
    array.data = const_cast<void*>(elements);
}

} // namespace hosts::oct
