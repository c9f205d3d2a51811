// SPDX-License-Identifier: BSD-3-Clause
// Blocks of a variable's values: the one way to read and to write them.
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

// The block as the guards of the library take it, valid as long as both arguments.
LibraryBlock libraryBlock(Variable& variable, const Block& block);

// Reads the block's values, converted to the element type, one after the other to destination,
// which has memory for all of them: nc_get_var_double and its kind for a whole variable,
// nc_get_vars_double and its kind for any other block. Returns the library's status for the values;
// raises the other failures.
int readBlock(Variable& variable, const ElementType& element, const Block& block,
              void* destination);

// The same for writing: nc_put_var_double and its kind, nc_put_vars_double and its kind.
int writeBlock(Variable& variable, const ElementType& element, const Block& block,
               const void* values);

} // namespace Ovard::gridio
