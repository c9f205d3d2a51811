// SPDX-License-Identifier: BSD-3-Clause
// Looking at an array.
#include "hosts/minimal/array.h"

#include <cmath>

static_assert(sizeof(bool) == 1, "logical elements take one byte");

size_t minimal::elementSize(vxClassID classId)
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

vxClassID vxGetClassID(const vxArray* array) { return array->classId; }

bool vxIsEmpty(const vxArray* array) { return array->count == 0; }

size_t vxGetNumberOfElements(const vxArray* array) { return array->count; }

size_t vxGetNumberOfDimensions(const vxArray* array) { return array->dims.size(); }

const size_t* vxGetDimensions(const vxArray* array) { return array->dims.data(); }

size_t vxGetElementSize(const vxArray* array) { return minimal::elementSize(array->classId); }

const void* vxGetData(const vxArray* array) { return array->elements.get(); }

void* vxGetWritableData(vxArray* array) { return array->elements.get(); }

bool vxIsLogicalScalar(const vxArray* array)
{
    return array->classId == vxLOGICAL_CLASS && array->count == 1;
}

const bool* vxGetLogicals(const vxArray* array)
{
    return static_cast<const bool*>(array->elements.get());
}

bool vxIsComplex(const vxArray* array) { return array->isComplex; }

bool vxIsNaN(double value) { return std::isnan(value); }

bool vxIsInf(double value) { return std::isinf(value); }
