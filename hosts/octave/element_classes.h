// SPDX-License-Identifier: BSD-3-Clause
// The one table of how each class of elements lies in the interpreter's values.
#pragma once

#include "vx/array.h"

#include <octave/oct.h>

#include <cstddef>

namespace hosts::oct {

struct ElementClass {
    vxClassID id;

    // What the module sees of an element; 0 when it sees none.
    size_t size;

    // The elements of a full array, in the interpreter's own storage; null for any other value (a
    // scalar, a range, a sparse, diagonal, permutation or complex array).
    const void* (*share)(const octave_value& value);

    // The one element of a scalar, its real part.
    void (*readScalar)(const octave_value& value, void* element);

    // The value spelled out as a full array, its real part.
    octave_value (*full)(const octave_value& value);

    // A value that takes over a block of newElements as its storage, which is freed on failure.
    octave_value (*adopt)(void* block, const dim_vector& dims);

    // A scalar.
    octave_value (*scalar)(const void* element);
};

// The class of a value; of vxUNKNOWN_CLASS for every object, the methods of which may be the
// script's own and are never called.
const ElementClass& elementClass(const octave_value& value);

// The row of an identifier; of vxUNKNOWN_CLASS when there is none.
const ElementClass& elementClass(vxClassID id);

} // namespace hosts::oct
