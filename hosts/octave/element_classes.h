// SPDX-License-Identifier: BSD-3-Clause
// The table of the storage of each element class in the interpreter's values.
#pragma once

#include "vx/array.h"

#include <octave/oct.h>

#include <cstddef>

namespace hosts::oct {

struct ElementClass {
    vxClassID id;

    // Bytes per element that the module sees; 0 if it sees none.
    size_t size;

    // The elements of a full array, in the interpreter's own storage; null for any other value (a
    // scalar, a range, a sparse, diagonal, permutation or complex array).
    const void* (*share)(const octave_value& value);

    // The one element of a scalar, its real part.
    void (*readScalar)(const octave_value& value, void* element);

    // The real part of the value, converted to a full array.
    octave_value (*full)(const octave_value& value);

    // A block for that many elements, and a value that takes it over as its storage. It is freed on
    // failure.
    void* (*allocate)(size_t count);
    octave_value (*adopt)(void* block, const dim_vector& dims);

    // A scalar.
    octave_value (*scalar)(const void* element);
};

// The class of a value; vxUNKNOWN_CLASS for every object, whose methods may be defined by the
// script and are never called.
const ElementClass& elementClass(const octave_value& value);

// The row of an identifier; that of vxUNKNOWN_CLASS if there is none.
const ElementClass& elementClass(vxClassID id);

} // namespace hosts::oct
