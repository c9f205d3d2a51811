// SPDX-License-Identifier: BSD-3-Clause
// Blocks of netCDF-4 variables that are shorter than their unlimited dimensions have become.
#pragma once

#include "data/element_storage.h"
#include "data/element_types.h"
#include "operation_entry.h"

namespace Ovard::gridio {

// Of a variable, in the library's dimension order.
struct Block {
    const SizeVector& start;
    const SizeVector& count;
    const StrideVector& stride;
    const int* dimids; // the identifiers of the dimensions
};

// Where an unlimited dimension has grown past what was written of a variable, the rest is to read
// as the fill value. But with a stride along that dimension, and when it is not the first, the
// library puts values in the wrong places, takes fill values for written ones or leaves elements as
// they were, and reports success. A block that may be such a one, and ends with a fill value, is
// read into values in pieces that the library reads right. Returns whether it was; if not, it is to
// be read as a whole. To be called for files that are stored in HDF5.
bool readUnwritten(const ElementResult& values, const ElementType& element, int ncid, int varid,
                   const Block& block, const OperationEntry* entry);

} // namespace Ovard::gridio
