// SPDX-License-Identifier: BSD-3-Clause
// Reads of netCDF-4 variables of which less was written than their unlimited dimensions have grown
// to. The unwritten part should read as the fill value; but with a stride along an unlimited
// dimension, or when one is not the variable's first, release 4.9.0 puts values in the wrong
// places, returns fill values for written ones or leaves elements unset, and reports success.
#pragma once

#include "operation_entry.h"

#include <cstddef>
#include <functional>

namespace Ovard::gridio {

// nc_get_vars_double and the like with the element type erased.
using GetVarsCall =
    std::function<int(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                      const std::ptrdiff_t* stride, void* values)>;

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

// Memory for the values of a block.
struct BlockMemory {
    std::size_t elementSize;
    char* values; // for the whole block
    char* fill;   // for one value, zeroed
    // Where written values and copies of the fill value are assembled, as bytes: values itself or,
    // for values that own memory and must stay where they were read, other memory of the same size.
    char* spread;
};

struct PartlyRead {
    int status;
    bool isSpread; // the block is in spread, not in values
};

// A correct getVars, with its status: one call reads the written part to the beginning of values,
// and another one a fill value, converted by the library.
PartlyRead readPartlyWritten(const LibraryBlock& block, const GetVarsCall& getVars,
                             const BlockMemory& memory, const OperationEntry* entry);

} // namespace Ovard::gridio
