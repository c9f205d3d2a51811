// SPDX-License-Identifier: BSD-3-Clause
// The element types of the typed operations: the one table that attribute, whole-variable and
// subset access use. A row holds the library's typed calls with their C type erased, since the
// host's storage is void*.
#pragma once

#include "data/elements/element_forms.h"
#include "operation_entry.h"

#include <netcdf.h>

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace Ovard::gridio {

struct ElementType {
    const char* suffix;   // the end of the operation names: "Uint64"
    vxClassID hostClass;  // of the result of a read
    std::size_t size;     // size in bytes of the C element that is passed to the library
    nc_type externalType; // the netCDF type that is stored as this C element
    const ElementForm* form;

    // Typed library calls of the row: nc_get_var_double, nc_get_vars_double, nc_get_att_double and
    // so on. Those for variables are null for Ubyte, which only attributes have.
    int (*getVar)(int ncid, int varid, void* values);
    int (*putVar)(int ncid, int varid, const void* values);
    int (*getVars)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                   const std::ptrdiff_t* stride, void* values);
    int (*putVars)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                   const std::ptrdiff_t* stride, const void* values);
    int (*getAtt)(int ncid, int varid, const char* name, void* values);
    // Null for Text, whose attribute write takes no external type.
    int (*putAtt)(int ncid, int varid, const char* name, nc_type xtype, std::size_t count,
                  const void* values);

    // Reads a scalar argument with the reader of the C type into element; null for Text, as its
    // form reads characters.
    void (*readScalar)(const vxArray* argument, std::string_view name, void* element);
};

// A family of operations, one for each element type, with consecutive codes in the order of the
// table.
struct TypedFamily {
    std::int32_t firstCode; // of suffix "Double"
    std::int32_t lastCode;
    bool hasUbyte; // of the attribute families, which have "Ubyte" between "Uchar" and "Text"
};

// clang-format off
constexpr TypedFamily attributeReads  = {15, 26, true};
constexpr TypedFamily wholeReads      = {27, 37, false};
constexpr TypedFamily subsetReads     = {38, 48, false};
constexpr TypedFamily attributeWrites = {77, 87, true};
constexpr TypedFamily wholeWrites     = {89, 99, false};
constexpr TypedFamily subsetWrites    = {100, 110, false};
// clang-format on

// "putAttText", which has a handler of its own since it takes no type, follows its family.
constexpr std::int32_t attributeTextWrite = attributeWrites.lastCode + 1;

constexpr bool isAttributeWrite(std::int32_t code)
{
    return code >= attributeWrites.firstCode && code <= attributeTextWrite;
}

constexpr std::size_t elementTypeCount = 12;
extern const ElementType elementTypes[elementTypeCount];

// The row for an operation code of the family; null for any other code.
const ElementType* findElementType(const TypedFamily& family, std::int32_t code);

// The row of the entry's code. Raises unrecognizedOperation with the entry's name for a code
// outside the family.
const ElementType& elementTypeOf(const TypedFamily& family, const OperationEntry* entry);

// The row for a netCDF type; null for NC_NAT, NC_STRING and every user-defined type.
const ElementType* findExternalType(nc_type xtype);

} // namespace Ovard::gridio
