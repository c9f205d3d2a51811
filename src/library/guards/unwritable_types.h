// SPDX-License-Identifier: BSD-3-Clause
// Definitions of types that cannot be written to a file. Release 4.9.0 accepts them, and then can
// neither write nor close the file, so that all other definitions made with them are lost.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace Ovard::gridio {

// Raises NC_ENAMEINUSE for a type that would be named like a dimension of its group.
void requireFreeTypeName(int ncid, const std::string& name, const OperationEntry* entry);

// Raises NC_EINVAL for values larger than a file can describe.
void requireWritableSize(std::size_t size, const OperationEntry* entry);

// Raises NC_EBADTYPE unless the base of an enumeration is an integer type.
void requireIntegerType(nc_type base, const OperationEntry* entry);

// Raises NC_EBADTYPE unless a type of this group can be based on the other one: it exists, and
// precedes it in the file.
void requireEarlierType(int ncid, nc_type part, const OperationEntry* entry);

// Raises NC_ENAMEINUSE or NC_EINVAL if the enumeration has a member of that name or value; bits are
// the bytes of the value, as many as the type has.
void requireNewMember(int ncid, nc_type enumeration, const std::string& name, std::uint64_t bits,
                      const OperationEntry* entry);

// A field of a compound type.
struct FieldPlan {
    std::string name;
    std::size_t offset;
    nc_type xtype;
    std::vector<int> lengths;
};

// Raises NC_ENAMEINUSE for the name of an existing field, NC_EBADTYPE for a type that the compound
// type cannot contain, and NC_EINVAL for lengths that are not positive or too many, and for a field
// that overlaps another or the end.
void requireNewField(int ncid, nc_type compound, const FieldPlan& plan,
                     const OperationEntry* entry);

} // namespace Ovard::gridio
