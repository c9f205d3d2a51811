// SPDX-License-Identifier: BSD-3-Clause
// Conversion of values in the library's memory to arrays of the host. Each type has its own class:
// numbers theirs, enumerations that of their integers, strings and vlens cell arrays, compound
// types structures of arrays, opaque types bytes.
#pragma once

#include "types/places.h"
#include "types/type_description.h"

namespace Ovard::gridio {

// The shape of values, in the host's order: the dimensions of a variable or, for an attribute, its
// number of values. Array fields and opaque types add their dimensions in front.
struct ValueShape {
    SizeVector lengths;
    bool isRow = false; // an attribute's: a row, unless dimensions are added in front
};

// The form in which enumerations are returned.
enum class EnumerationForm { integers, labels };

// Creates each array once, at its size. Raises the host's out-of-memory error.
vxArray* readValues(const Type& type, const ReadPlaces& places, const ValueShape& shape,
                    EnumerationForm form);

// The dimensions of an array of values of that shape, with others in front.
SizeVector hostDimensions(const SizeVector& front, const ValueShape& shape);

} // namespace Ovard::gridio
