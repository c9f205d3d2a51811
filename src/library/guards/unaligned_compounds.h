// SPDX-License-Identifier: BSD-3-Clause
// Compound types whose fields are not laid out as in a C structure. As long as the file in which
// such a type was defined stays open, release 4.9.0 describes it as it was defined but reads its
// values as a C structure, past the size that it reported.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <cstddef>
#include <vector>

namespace Ovard::gridio {

// The layout of the fields of a C structure.
class CStructure {
public:
    // Adds a field and returns its offset.
    std::size_t add(std::size_t size, std::size_t alignment);

    std::size_t alignment() const { return alignment_; }
    std::size_t size() const;

private:
    std::size_t end_ = 0;
    std::size_t alignment_ = 1;
};

// Whether a compound type without a C structure's layout is read as it is described: its size and
// the offsets of its fields are those of the type in the file, converted to this machine.
bool isReadAsDescribed(int ncid, nc_type xtype, std::size_t size,
                       const std::vector<std::size_t>& offsets, const OperationEntry* entry);

} // namespace Ovard::gridio
