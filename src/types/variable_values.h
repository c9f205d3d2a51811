// SPDX-License-Identifier: BSD-3-Clause
// Values of variables of all types except numbers and characters, which readBlock and writeBlock
// handle.
#pragma once

#include "data/elements/blocks.h"
#include "types/library_values.h"

namespace Ovard::gridio {

// The values of a block, read when it is constructed. Raises the library's failures.
class BlockValues {
public:
    BlockValues(Variable& variable, const Type& type, const Block& block);

    ReadPlaces places() const { return {first_, count_, size_}; }

private:
    int read(Variable& variable, const Block& block);
    GetVarsCall callFor(const Variable& variable) const;

    const Type& type_;
    std::size_t count_;
    std::size_t size_;
    LibraryValues values_;
    LibraryValues fill_;        // for unwritten elements
    HostMemory<char> together_; // written values and fill values, owned by the two above
    const char* first_;
};

// Writes as many values as the block holds. Raises foreignType for types that the library would
// write incorrectly, and the library's failures.
void writeValues(Variable& variable, const Type& type, const Block& block, const void* values);

// Raises foreignType for a type whose values the library would write incorrectly to that file.
void requireWritable(int ncid, const Type& type, const OperationEntry* entry);

} // namespace Ovard::gridio
