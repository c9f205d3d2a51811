// SPDX-License-Identifier: BSD-3-Clause
#include "types/type_description.h"

#include "any_error_identifiers.h"
#include "check_status.h"
#include "data/elements/shapes.h"
#include "library/guards/oversized_names.h"
#include "library/guards/unaligned_compounds.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

// More than any file has, and few enough for the recursive walks over a type.
constexpr std::size_t depthLimit = 500;

constexpr std::size_t stringSize = sizeof(char*);

[[noreturn]] void raiseDamaged(const Type& type) { vxErrMsgId(any::damagedType(type.name)); }

// Fills in one of the library's own types. False for any other.
bool describeAtomic(Type& type)
{
    const char* name = atomicTypeName(type.id);
    if (name == nullptr)
        return false;
    type.name = name;
    if (type.id == NC_STRING) {
        type.kind = TypeKind::string;
        type.size = type.alignment = stringSize;
        type.ownsMemory = true;
        return true;
    }
    type.element = findExternalType(type.id);
    type.kind = type.id == NC_CHAR ? TypeKind::character : TypeKind::number;
    type.size = type.alignment = type.element->size;
    return true;
}

bool isInteger(const Type& type)
{
    return type.kind == TypeKind::number && type.id != NC_FLOAT && type.id != NC_DOUBLE;
}

} // namespace

const char* atomicTypeName(nc_type xtype)
{
    static constexpr const char* names[] = {nullptr, "byte",   "char",  "short",  "int",
                                            "float", "double", "ubyte", "ushort", "uint",
                                            "int64", "uint64", "string"};
    return xtype > NC_NAT && xtype <= NC_STRING ? names[xtype] : nullptr;
}

TypeTree::TypeTree(int ncid, nc_type xtype, const OperationEntry* entry)
    : ncid_(ncid), entry_(entry)
{
    root_ = describe(xtype);
}

const Type* TypeTree::describe(nc_type xtype)
{
    const auto found = known_.find(xtype);
    if (found != known_.end() && found->second != nullptr)
        return found->second;

    Type& type = types_.emplace_back();
    type.id = xtype;
    if (!describeAtomic(type)) {
        type.name = "type " + std::to_string(xtype);
        if (found != known_.end() || ++depth_ > depthLimit)
            raiseDamaged(type);
        known_[xtype] = nullptr;
        describeUserType(type);
        --depth_;
    }
    return known_[xtype] = &type;
}

void TypeTree::describeUserType(Type& type)
{
    char* name = nameBuffer();
    nc_type base = NC_NAT;
    std::size_t parts = 0;
    int kind = 0;
    checkStatus(nc_inq_user_type(ncid_, type.id, name, &type.size, &base, &parts, &kind), entry_);
    type.name = name;
    switch (kind) {
    case NC_VLEN:
        return describeVlen(type, base);
    case NC_ENUM:
        return describeEnumeration(type, base, parts);
    case NC_COMPOUND:
        return describeCompound(type, parts);
    case NC_OPAQUE:
        type.kind = TypeKind::opaque;
        if (type.size > 0)
            return;
        break;
    default:
        break;
    }
    raiseDamaged(type);
}

void TypeTree::describeVlen(Type& type, nc_type base)
{
    type.kind = TypeKind::vlen;
    type.alignment = alignof(nc_vlen_t);
    type.ownsMemory = true;
    if (type.size != sizeof(nc_vlen_t))
        raiseDamaged(type);
    type.base = describe(base);
    type.holdsLabels = type.base->holdsLabels;
    type.isWritable = type.base->isWritable;
    type.isWrittenAlone = type.base->isWrittenAlone;
}

void TypeTree::describeEnumeration(Type& type, nc_type base, std::size_t memberCount)
{
    const Type& integers = *describe(base);
    if (!isInteger(integers) || integers.size != type.size)
        raiseDamaged(type);
    type.kind = TypeKind::enumeration;
    type.alignment = integers.alignment;
    type.element = integers.element;
    type.holdsLabels = true;
    char* name = nameBuffer();
    for (std::size_t i = 0; i < memberCount; ++i) {
        std::uint64_t bits = 0;
        checkStatus(nc_inq_enum_member(ncid_, type.id, static_cast<int>(i), name, &bits), entry_);
        type.members.push_back({name, bits});
    }
}

void TypeTree::describeCompound(Type& type, std::size_t fieldCount)
{
    type.kind = TypeKind::compound;
    if (fieldCount == 0)
        raiseDamaged(type);
    for (std::size_t i = 0; i < fieldCount; ++i) {
        type.fields.push_back(describeField(type, static_cast<int>(i)));
        const Field& field = type.fields.back();
        const Type& inner = *field.type;
        type.ownsMemory = type.ownsMemory || inner.ownsMemory;
        type.holdsLabels = type.holdsLabels || inner.holdsLabels;
        // HDF5 1.10.8 gives the last one's strings and vlens to each of several such arrays.
        type.isWrittenAlone =
            type.isWrittenAlone || inner.isWrittenAlone ||
            (!field.lengths.empty() && inner.kind == TypeKind::compound && inner.ownsMemory);
        type.isWritable =
            type.isWritable && inner.isWritable && (field.count == 1 || !inner.isWrittenAlone);
    }
    requireReadableLayout(type);
}

// A type whose fields are not laid out as in a C structure is read with HDF5's layout. That may
// agree with the description, if HDF5 has fields in between of types that netCDF does not have.
void TypeTree::requireReadableLayout(Type& type) const
{
    CStructure structure;
    std::vector<std::size_t> offsets;
    std::string layout;
    bool isStructure = true;
    for (const Field& field : type.fields) {
        offsets.push_back(field.offset);
        const std::size_t offset =
            structure.add(field.count * field.type->size, field.type->alignment);
        isStructure = isStructure && offset == field.offset;
        layout += "'" + field.name + "' at " + std::to_string(offset) + ", ";
    }
    type.alignment = structure.alignment();
    if (isStructure && structure.size() == type.size)
        return;
    if (!isReadAsDescribed(ncid_, type.id, type.size, offsets, entry_))
        vxErrMsgId(
            any::unalignedType(type.name, layout + "size " + std::to_string(structure.size())));
    type.isWritable = false;
}

Field TypeTree::describeField(const Type& compound, int number)
{
    int rank = 0;
    checkStatus(nc_inq_compound_fieldndims(ncid_, compound.id, number, &rank), entry_);
    std::vector<int> lengths(static_cast<std::size_t>(std::max(rank, 1)));
    char* name = nameBuffer();
    Field field{};
    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_compound_field(ncid_, compound.id, number, name, &field.offset, &xtype,
                                      nullptr, lengths.data()),
                entry_);
    field.name = name;
    field.type = describe(xtype);
    lengths.resize(static_cast<std::size_t>(std::max(rank, 0)));
    if (std::any_of(lengths.begin(), lengths.end(), [](int length) { return length <= 0; }))
        raiseDamaged(compound);
    field.lengths.assign(lengths.rbegin(), lengths.rend());
    field.count = productOf(field.lengths);

    std::size_t bytes = 0;
    if (__builtin_mul_overflow(field.count, field.type->size, &bytes) ||
        field.offset > compound.size || bytes > compound.size - field.offset)
        raiseDamaged(compound);
    return field;
}

} // namespace Ovard::gridio
