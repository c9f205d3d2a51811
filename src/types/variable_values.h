// SPDX-License-Identifier: BSD-3-Clause
// Values of variables of any type but the library's numbers and characters, for which readBlock and
// writeBlock are.
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
    LibraryValues fill_;        // for elements that were never written
    HostMemory<char> together_; // written values and fill values, which the two above own
    const char* first_;
};

// Writes as many values as the block holds. Raises foreignType for what the library would write
// wrong, and the library's failures.
void writeValues(Variable& variable, const Type& type, const Block& block, const void* values);

// Raises foreignType for a type whose values the library would write wrong to that file.
void requireWritable(int ncid, const Type& type, const OperationEntry* entry);

} // namespace Ovard::gridio
