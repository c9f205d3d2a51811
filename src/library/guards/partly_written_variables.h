// SPDX-License-Identifier: BSD-3-Clause
// Reads of netCDF-4 variables of which less was written than their unlimited dimensions have grown
// to. What was not written is to read as the fill value; but with a stride along an unlimited
// dimension, or where one is not the variable's first, release 4.9.0 puts values in the wrong
// places, takes fill values for written ones or leaves elements as they were, and reports success.
#pragma once

#include "operation_entry.h"

#include <cstddef>
#include <functional>

namespace Ovard::gridio {

// nc_get_vars_double and its kind with the element type erased.
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
    // Where written values and copies of the fill value are put together, as bytes: values itself,
    // or other memory of its size for values that own memory, each of which then stays where it was
    // read.
    char* spread;
};

struct PartlyRead {
    int status;
    bool isSpread; // the block is in spread, not in values
};

// What getVars is to do, and its status, done right: the written part is read by one call, to the
// beginning of values, and another one reads a fill value as the library converts it.
PartlyRead readPartlyWritten(const LibraryBlock& block, const GetVarsCall& getVars,
                             const BlockMemory& memory, const OperationEntry* entry);

} // namespace Ovard::gridio
