// SPDX-License-Identifier: BSD-3-Clause
// Reads of netCDF-4 variables of which less was written than their unlimited dimensions have grown
// to. What was not written is to read as the fill value; but with a stride along an unlimited
// dimension, or where one is not the variable's first, release 4.9.0 puts values in the wrong
// places, takes fill values for written ones or leaves elements as they were, and reports success.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

// nc_get_vars_double and its kind with the element type erased.
using GetVarsCall = int (*)(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                            const std::ptrdiff_t* stride, void* values);

// A block of a variable, in the library's order of dimensions.
struct LibraryBlock {
    int ncid;
    int varid;
    const int* dimids;
    std::size_t rank;
    const std::size_t* start;
    const std::size_t* count;
    const std::ptrdiff_t* stride;
};

// True for a variable of a netCDF-4 file that the library may misread in such a block, however much
// of it was written.
bool isMisreadWhenPartlyWritten(const LibraryBlock& block, const OperationEntry* entry);

// What getVars is to do, and its status, done right: the written part is read by one call, and
// another one reads a fill value as the library converts it. elementSize is that of one value in
// memory.
int readPartlyWritten(const LibraryBlock& block, GetVarsCall getVars, std::size_t elementSize,
                      void* values, const OperationEntry* entry);

} // namespace Ovard::gridio
