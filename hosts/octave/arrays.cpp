// SPDX-License-Identifier: BSD-3-Clause
// Looking at an array.
#include "array.h"

#include <cmath>

using hosts::oct::examined;

vxClassID vxGetClassID(const vxArray* array) { return examined(array).kind->id; }

bool vxIsEmpty(const vxArray* array) { return examined(array).count == 0; }

size_t vxGetNumberOfElements(const vxArray* array) { return examined(array).count; }

size_t vxGetNumberOfDimensions(const vxArray* array)
{
    vxArray& known = examined(array);
    hosts::oct::loadDimensions(known);
    return known.rank;
}

const size_t* vxGetDimensions(const vxArray* array)
{
    vxArray& known = examined(array);
    hosts::oct::loadDimensions(known);
    return known.dims;
}

size_t vxGetElementSize(const vxArray* array) { return examined(array).kind->size; }

const void* vxGetData(const vxArray* array)
{
    vxArray& known = examined(array);
    hosts::oct::loadElements(known);
    return known.data;
}

void* vxGetWritableData(vxArray* array)
{
    hosts::oct::loadElements(examined(array));
    return array->data;
}

bool vxIsLogicalScalar(const vxArray* array)
{
    const vxArray& known = examined(array);
    return known.kind->id == vxLOGICAL_CLASS && known.count == 1;
}

const bool* vxGetLogicals(const vxArray* array)
{
    return static_cast<const bool*>(vxGetData(array));
}

bool vxIsComplex(const vxArray* array)
{
    const vxArray& known = examined(array);
    return known.source && known.source->iscomplex();
}

bool vxIsNaN(double value) { return std::isnan(value); }

bool vxIsInf(double value) { return std::isinf(value); }
