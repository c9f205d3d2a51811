// SPDX-License-Identifier: BSD-3-Clause
// The host's array: a lazy view of one of the interpreter's values, or a new array that will be
// passed to the interpreter.
#pragma once

#include "element_classes.h"
#include "vx/array.h"

#include <octave/oct.h>

#include <cstddef>
#include <memory>
#include <optional>

namespace hosts::oct {

struct Contents;
struct DeleteContents {
    void operator()(Contents* contents) const noexcept;
};

} // namespace hosts::oct

struct vxArray {
    // An argument. The value must outlive the array.
    explicit vxArray(const octave_value& argument) : source(&argument) {}

    // A new array; the caller adds the storage.
    vxArray(const hosts::oct::ElementClass& newKind, size_t newCount)
        : kind(&newKind), count(newCount)
    {
    }

    vxArray(const vxArray&) = delete;
    vxArray& operator=(const vxArray&) = delete;

    // The value behind the view; null for a new array that is not yet a value of the interpreter.
    const octave_value* source = nullptr;

    // Null until an argument is first inspected; then count is set as well.
    const hosts::oct::ElementClass* kind = nullptr;
    size_t count = 0;

    // Null until requested; two lengths are stored in the array itself.
    const size_t* dims = nullptr;
    size_t rank = 0;
    size_t twoDims[2];

    // The result of vxGetData; null until requested. For text, its 16-bit units.
    void* data = nullptr;

    // A value that only this array holds: the elements of an argument as a full array, or the
    // storage of a result.
    std::optional<octave_value> held;

    // The contents of a cell array or a structure; null for an argument that has not been looked
    // into.
    std::unique_ptr<hosts::oct::Contents, hosts::oct::DeleteContents> contents;

    // The one element of a scalar.
    alignas(8) unsigned char element[8];
};

namespace hosts::oct {

// The array after its class and count were determined. The module's arrays are const; this only
// completes the lazy view.
vxArray& examined(const vxArray* array);

// Memory for that many dimensions.
size_t* dimensionStorage(vxArray& array, size_t rank);

// Fills in the dimensions, and the elements of a class that has storage.
void loadDimensions(vxArray& array);
void loadElements(vxArray& array);

// The characters of a char array as the interpreter stores them, one byte each; null for an array
// that has only its 16-bit units.
const char* textBytes(vxArray& array);

// The units of a char array.
char16_t* textUnits(vxArray& array);

// Each unit's low byte.
void narrowText(const char16_t* units, size_t count, char* bytes);

// A new array with its dimensions: rank 0 is 0-by-0, rank 1 a column.
vxArray* addArray(const ElementClass& kind, size_t rank, const size_t* dims);

// Known dimensions, in the interpreter's form.
dim_vector dimensions(const vxArray& array);

// The finished array as a value of the interpreter, and that of a cell array or a structure.
octave_value toValue(vxArray& array);
octave_value contentsValue(const vxArray& array);

} // namespace hosts::oct
