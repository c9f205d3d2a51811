// SPDX-License-Identifier: BSD-3-Clause
// The types of netCDF files, and the layout of their values in memory.
#pragma once

#include "data/elements/element_types.h"
#include "operation_entry.h"

#include <netcdf.h>

#include <cstddef>
#include <cstdint>
#include <deque>
#include <map>
#include <string>
#include <vector>

namespace Ovard::gridio {

enum class TypeKind { number, character, string, enumeration, vlen, compound, opaque };

struct Type;

// A field for a compound type.
struct Field {
    std::string name;
    std::size_t offset; // in bytes
    const Type* type;
    SizeVector lengths; // of an array, in the host's order; none otherwise
    std::size_t count;  // elements: the product of lengths
};

// A member for an enumeration. Its value is in the lowest bits, as many as the type has.
struct Member {
    std::string name;
    std::uint64_t bits;
};

struct Type {
    nc_type id = NC_NAT;
    TypeKind kind = TypeKind::number;
    std::string name;
    std::size_t size = 0;                 // bytes of a value
    std::size_t alignment = 1;            // of a value in a C structure
    const ElementType* element = nullptr; // for numbers, and for an enumeration's integers
    const Type* base = nullptr;           // for a vlen
    std::vector<Field> fields;            // for a compound type
    std::vector<Member> members;          // for an enumeration
    bool ownsMemory = false;              // values hold strings or vlens
    bool holdsLabels = false;             // values hold enumerations
    bool isWritable = true;               // the library writes a value as described
    bool isWrittenAlone = false;          // several in one call get each other's strings
};

// A type with all its component types, each described once. Raises the library's failures,
// unalignedType, and damagedType for a description that contradicts itself: a field outside its
// compound type, a type inside itself, absurd depth.
class TypeTree {
public:
    TypeTree(int ncid, nc_type xtype, const OperationEntry* entry);
    TypeTree(const TypeTree&) = delete;
    TypeTree& operator=(const TypeTree&) = delete;

    const Type& root() const { return *root_; }

private:
    const Type* describe(nc_type xtype);
    void describeUserType(Type& type);
    void describeVlen(Type& type, nc_type base);
    void describeEnumeration(Type& type, nc_type base, std::size_t memberCount);
    void describeCompound(Type& type, std::size_t fieldCount);
    void requireReadableLayout(Type& type) const;
    Field describeField(const Type& compound, int number);

    int ncid_;
    const OperationEntry* entry_;
    std::deque<Type> types_;
    std::map<nc_type, const Type*> known_; // null while the type is being described
    std::size_t depth_ = 0;
    const Type* root_ = nullptr;
};

// "int" for NC_INT; null for a type that is not one of the library's own.
const char* atomicTypeName(nc_type xtype);

} // namespace Ovard::gridio
