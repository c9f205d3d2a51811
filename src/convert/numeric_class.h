// SPDX-License-Identifier: BSD-3-Clause
// From the class of a host array to the C type of its elements: the one switch over the ten numeric
// classes.
#pragma once

#include "vx/array.h"

#include <cstdint>

namespace Ovard::gridio {

// Calls visit with the elements of the array, as a pointer to const of their C type, and returns
// true. Returns false, without a call, if the array is not of a numeric class (char, logical, cell
// and all others).
template <class Visitor> bool visitNumericElements(const vxArray* array, Visitor&& visit)
{
    // clang-format off
    switch (vxGetClassID(array)) {
    case vxDOUBLE_CLASS: visit(static_cast<const double*>(vxGetData(array)));        return true;
    case vxSINGLE_CLASS: visit(static_cast<const float*>(vxGetData(array)));         return true;
    case vxINT8_CLASS:   visit(static_cast<const std::int8_t*>(vxGetData(array)));   return true;
    case vxUINT8_CLASS:  visit(static_cast<const std::uint8_t*>(vxGetData(array)));  return true;
    case vxINT16_CLASS:  visit(static_cast<const std::int16_t*>(vxGetData(array)));  return true;
    case vxUINT16_CLASS: visit(static_cast<const std::uint16_t*>(vxGetData(array))); return true;
    case vxINT32_CLASS:  visit(static_cast<const std::int32_t*>(vxGetData(array)));  return true;
    case vxUINT32_CLASS: visit(static_cast<const std::uint32_t*>(vxGetData(array))); return true;
    case vxINT64_CLASS:  visit(static_cast<const std::int64_t*>(vxGetData(array)));  return true;
    case vxUINT64_CLASS: visit(static_cast<const std::uint64_t*>(vxGetData(array))); return true;
    default:             return false;
    }
    // clang-format on
}

} // namespace Ovard::gridio
