// SPDX-License-Identifier: BSD-3-Clause
// The typed library calls by the last word of an operation's name, each by its own C function.
#pragma once

#include "vx/array.h"

#include <netcdf.h>

#include <cstddef>
#include <string>

namespace properties {

struct TypedLibraryCalls {
    std::string suffix;
    nc_type storedType; // that holds such elements
    vxClassID hostClass;
    std::size_t size;

    int (*getVar)(int, int, void*);
    int (*getVar1)(int, int, const std::size_t*, void*);
    int (*getVara)(int, int, const std::size_t*, const std::size_t*, void*);
    int (*getVars)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*, void*);
    int (*putVar)(int, int, const void*);
    int (*putVars)(int, int, const std::size_t*, const std::size_t*, const std::ptrdiff_t*,
                   const void*);
    int (*getAtt)(int, int, const char*, void*);
    int (*putAtt)(int, int, const char*, nc_type, std::size_t, const void*); // null for "Text"
};

constexpr std::size_t typedCount = 12; // "Ubyte", of attributes only, comes last
extern const TypedLibraryCalls typedCalls[typedCount];

const TypedLibraryCalls& typedLibraryCalls(const std::string& suffix);
const TypedLibraryCalls& callsOfStoredType(nc_type xtype);

} // namespace properties
