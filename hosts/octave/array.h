// SPDX-License-Identifier: BSD-3-Clause
// The host's array: a view of one of the interpreter's values, looked at no further than the module
// asks, or a new array on its way to the interpreter.
#pragma once

#include "element_classes.h"
#include "vx/array.h"

#include <octave/oct.h>

#include <cstddef>
#include <optional>

struct vxArray {
    // An argument. The value outlives the array.
    explicit vxArray(const octave_value& argument) : source(&argument) {}

    // A new array, whose storage the caller adds.
    vxArray(const hosts::oct::ElementClass& newKind, size_t newCount)
        : kind(&newKind), count(newCount)
    {
    }

    vxArray(const vxArray&) = delete;
    vxArray& operator=(const vxArray&) = delete;

    // The value that is looked at; null for a new array that is not yet one of the interpreter's.
    const octave_value* source = nullptr;

    // Null until something is asked of an argument; count is then known as well.
    const hosts::oct::ElementClass* kind = nullptr;
    size_t count = 0;

    // Null until asked for.
    const size_t* dims = nullptr;
    size_t rank = 0;

    // What vxGetData hands out; null until asked for. Text has its 16-bit units here.
    void* data = nullptr;

    // A value that only this array holds: elements spelled out, or a result's own storage.
    std::optional<octave_value> held;

    // The children of a cell array; null for an empty cell.
    vxArray** cells = nullptr;

    // The one element of a scalar.
    alignas(8) unsigned char element[8];
};

namespace hosts::oct {

// The array with its class and count known. The module's arrays are const; what is filled in here
// is what they always were, only not yet looked at.
vxArray& examined(const vxArray* array);

// Fills in the dimensions, and the elements of a class that has storage.
void loadDimensions(vxArray& array);
void loadElements(vxArray& array);

// The characters of a char array as the interpreter holds them, one byte each; null for one that
// has only its 16-bit units.
const char* textBytes(vxArray& array);

// The units of a char array.
char16_t* textUnits(vxArray& array);

// Each unit's low byte.
void narrowText(const char16_t* units, size_t count, char* bytes);

// The finished array as a value of the interpreter.
octave_value toValue(vxArray& array);

} // namespace hosts::oct
