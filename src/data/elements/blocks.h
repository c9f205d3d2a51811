// SPDX-License-Identifier: BSD-3-Clause
// Blocks of a variable's values: all reads and writes go through here.
#pragma once

#include "data/elements/element_types.h"
#include "data/elements/variable.h"
#include "library/guards/partly_written_variables.h"

namespace Ovard::gridio {

// In the library's dimension order.
struct Block {
    SizeVector start;
    SizeVector count;
    StrideVector stride;
    bool isWhole = false; // all of the variable, as it is now
};

Block wholeBlock(Variable& variable);

// The block in the form that src/library/guards takes, valid as long as both arguments.
LibraryBlock libraryBlock(Variable& variable, const Block& block);

// Reads the block's values, converted to the element type, contiguously into destination, which is
// large enough for all of them: by nc_get_var_double and the like for a whole variable, by
// nc_get_vars_double and the like for any other block. Returns the library's status for the values;
// raises the other failures.
int readBlock(Variable& variable, const ElementType& element, const Block& block,
              void* destination);

// The same for writing: by nc_put_var_double or nc_put_vars_double and the like.
int writeBlock(Variable& variable, const ElementType& element, const Block& block,
               const void* values);

} // namespace Ovard::gridio
