// SPDX-License-Identifier: BSD-3-Clause
// The host's arrays, as the module sees them. Every host defines each of these functions once; the
// module never looks inside a vxArray.
//
// Ownership. Arguments belong to the host and stay unchanged during the call. An array that a
// vxCreate function returns belongs to the host from its creation: in a result slot it is returned
// to the script; put into a cell or a field it belongs to that array, and the module no longer uses
// its pointer; otherwise (also when an exception leaves the module) it is released at the end of
// the call.
//
// Failure. A function that allocates never returns null: when memory is exhausted, or the
// dimensions are larger than the host supports, the host raises its own out-of-memory error, as a
// C++ exception that passes through the module. So may the functions that look into cells and
// structures. No other function here raises anything.
//
// Order. Elements are stored column-major: the first dimension varies fastest. Dimensions are
// listed in that order.
#pragma once

#include <cstddef>

extern "C" {

struct vxArray;

// The class of an array. Any other value (a function handle, an object) is of vxUNKNOWN_CLASS.
enum vxClassID {
    vxUNKNOWN_CLASS = 0,
    vxCELL_CLASS = 1,
    vxCHAR_CLASS = 2,
    vxLOGICAL_CLASS = 3,
    vxSTRUCT_CLASS = 4,
    vxDOUBLE_CLASS = 6,
    vxSINGLE_CLASS = 7,
    vxINT8_CLASS = 8,
    vxUINT8_CLASS = 9,
    vxINT16_CLASS = 10,
    vxUINT16_CLASS = 11,
    vxINT32_CLASS = 12,
    vxUINT32_CLASS = 13,
    vxINT64_CLASS = 14,
    vxUINT64_CLASS = 15
};

// Whether a numeric array is to have an imaginary part. The module creates real arrays only.
enum vxComplexity { vxREAL = 0, vxCOMPLEX = 1 };

// --- Looking at an array

vxClassID vxGetClassID(const vxArray* array);

// True when the array has no elements.
bool vxIsEmpty(const vxArray* array);

size_t vxGetNumberOfElements(const vxArray* array);

// The rank, at least 2, and that many lengths. The pointer is valid as long as the array.
size_t vxGetNumberOfDimensions(const vxArray* array);
const size_t* vxGetDimensions(const vxArray* array);

// The size in bytes of an element in the storage that vxGetData returns: 8 for double, 2 for char
// (one UTF-16 unit), 1 for logical; 0 for a class whose storage is not accessible (vxCELL_CLASS,
// vxSTRUCT_CLASS, vxUNKNOWN_CLASS).
size_t vxGetElementSize(const vxArray* array);

// The elements, in storage order: vxGetNumberOfElements times vxGetElementSize bytes, aligned for
// the element. For a complex array the real part only; for a sparse array every element. Valid as
// long as the array. Null, or not to be dereferenced, if there are no bytes.
const void* vxGetData(const vxArray* array);

// The same storage, writable, of an array that the module has created in the present call.
void* vxGetWritableData(vxArray* array);

// True for a logical array of exactly one element.
bool vxIsLogicalScalar(const vxArray* array);

// The elements of a logical array, one byte each; non-zero means true.
const bool* vxGetLogicals(const vxArray* array);

// True for a numeric array with an imaginary part, whatever its values.
bool vxIsComplex(const vxArray* array);

bool vxIsNaN(double value);
bool vxIsInf(double value);

// --- Looking into cells and structures
//
// An array that vxGetCell or vxGetField returns belongs to the host. It is valid until the function
// is called with the same array again, and at the latest until the end of the call.

// The content of the cell with that zero-based index in storage order: a 0-by-0 double for an empty
// cell.
const vxArray* vxGetCell(const vxArray* cells, size_t index);

// The number of fields of a structure, and the name of a field by its zero-based number: narrow and
// NUL-terminated, valid as long as the array.
size_t vxGetNumberOfFields(const vxArray* structure);
const char* vxGetFieldName(const vxArray* structure, size_t field);

// The content of a field of a structure of one element.
const vxArray* vxGetField(const vxArray* structure, size_t field);

// --- Text and memory of the host's allocator

// The characters of a char array in storage order, in the narrow encoding, NUL-terminated; null
// when the array is not of class char. Released with vxFree.
char* vxArrayToString(const vxArray* array);

// The low byte of each unit of a char array, in storage order: vxGetNumberOfElements bytes.
void vxGetCharBytes(const vxArray* array, char* bytes);

// count times size bytes, all zero, aligned for any element; never null, not even for zero bytes.
// Raises the host's out-of-memory error. Released with vxFree.
void* vxCalloc(size_t count, size_t size);

// Releases what vxArrayToString or vxCalloc returned. Null is allowed and does nothing.
void vxFree(void* memory);

// --- Creating arrays
//
// rank and dims: rank 0 creates a 0-by-0 array (dims may then be null), rank 1 a column, any other
// an array of these dimensions.

// A 1-by-1 double.
vxArray* vxCreateDoubleScalar(double value);

// A 1-by-1 logical.
vxArray* vxCreateLogicalScalar(bool value);

// A 1-by-n char row from NUL-terminated narrow text; 1-by-0 when the text is empty.
vxArray* vxCreateString(const char* text);

// A char array of zero characters.
vxArray* vxCreateCharArray(size_t rank, const size_t* dims);

// A char array of bytes, each widened as a signed char: those from 0x80 become units from 0xFF80.
vxArray* vxCreateCharArrayFromBytes(size_t rank, const size_t* dims, const char* bytes);

// A numeric array of zeros, of one of the ten numeric classes.
vxArray* vxCreateNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                              vxComplexity complexity);

// A numeric array with uninitialised elements. vxUNKNOWN_CLASS is allowed for an array without
// elements.
vxArray* vxCreateUninitNumericArray(size_t rank, const size_t* dims, vxClassID classId,
                                    vxComplexity complexity);

// A cell array of empty cells.
vxArray* vxCreateCellArray(size_t rank, const size_t* dims);

// Puts value, which the cell array then owns, into the cell with that zero-based index in storage
// order.
void vxSetCell(vxArray* cells, size_t index, vxArray* value);

// A 1-by-1 structure with fields of these names, which are narrow, NUL-terminated and all
// different. Each field holds a 0-by-0 double.
vxArray* vxCreateStruct(size_t fieldCount, const char* const* names);

// Puts value, which the structure then owns, into the field with that zero-based number.
void vxSetField(vxArray* structure, size_t field, vxArray* value);

} // extern "C"
