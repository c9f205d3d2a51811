// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unwritable_types.h"

#include "check_status.h"
#include "library/guards/oversized_names.h"
#include "library/guards/renamed_scalars.h"
#include "library/type_location.h"

#include <algorithm>
#include <limits>

namespace Ovard::gridio {
namespace {

constexpr std::size_t mostArrayDimensions = 32; // of HDF5

void require(bool holds, int status, const OperationEntry* entry)
{
    if (!holds)
        raiseLibraryFailure(status, entry);
}

bool isUserType(nc_type xtype) { return xtype > NC_MAX_ATOMIC_TYPE; }

// Types are written in the order of their groups, and of their definition within a group.
bool isWrittenBefore(int group, nc_type part, nc_type whole, const OperationEntry* entry)
{
    if (openStoredType(group, part, entry))
        return true;
    const std::optional<int> place = groupOfType(group, part, entry);
    return place && part < whole && isAround(*place, group, entry);
}

std::size_t bytesOf(int ncid, nc_type xtype, const std::vector<int>& lengths,
                    const OperationEntry* entry)
{
    std::size_t bytes = 0;
    checkStatus(nc_inq_type(ncid, xtype, nullptr, &bytes), entry);
    for (const int length : lengths) {
        require(length > 0, NC_EINVAL, entry);
        require(!__builtin_mul_overflow(bytes, static_cast<std::size_t>(length), &bytes), NC_EINVAL,
                entry);
    }
    return bytes;
}

void requireNoOverlap(int ncid, nc_type compound, int other, std::size_t begin, std::size_t end,
                      const OperationEntry* entry)
{
    int rank = 0;
    checkStatus(nc_inq_compound_fieldndims(ncid, compound, other, &rank), entry);
    std::vector<int> lengths(static_cast<std::size_t>(std::max(rank, 1)));
    std::size_t offset = 0;
    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_compound_field(ncid, compound, other, nullptr, &offset, &xtype, nullptr,
                                      lengths.data()),
                entry);
    lengths.resize(static_cast<std::size_t>(std::max(rank, 0)));
    const std::size_t bytes = bytesOf(ncid, xtype, lengths, entry);
    require(offset >= end || offset + bytes <= begin, NC_EINVAL, entry);
}

} // namespace

void requireFreeTypeName(int ncid, const std::string& name, const OperationEntry* entry)
{
    require(!isOwnDimension(ncid, name, entry), NC_ENAMEINUSE, entry);
}

void requireWritableSize(std::size_t size, const OperationEntry* entry)
{
    require(size <= std::numeric_limits<std::uint32_t>::max(), NC_EINVAL, entry);
}

void requireIntegerType(nc_type base, const OperationEntry* entry)
{
    const bool isInteger = base > NC_NAT && base < NC_STRING && base != NC_CHAR &&
                           base != NC_FLOAT && base != NC_DOUBLE;
    require(isInteger, NC_EBADTYPE, entry);
}

void requireEarlierType(int ncid, nc_type part, const OperationEntry* entry)
{
    checkStatus(nc_inq_type(ncid, part, nullptr, nullptr), entry);
    constexpr nc_type newest = std::numeric_limits<nc_type>::max();
    require(!isUserType(part) || isWrittenBefore(ncid, part, newest, entry), NC_EBADTYPE, entry);
}

void requireNewMember(int ncid, nc_type enumeration, const std::string& name, std::uint64_t bits,
                      const OperationEntry* entry)
{
    std::size_t count = 0;
    checkStatus(nc_inq_enum(ncid, enumeration, nullptr, nullptr, nullptr, &count), entry);
    char* other = nameBuffer();
    for (std::size_t i = 0; i < count; ++i) {
        std::uint64_t otherBits = 0;
        checkStatus(nc_inq_enum_member(ncid, enumeration, static_cast<int>(i), other, &otherBits),
                    entry);
        require(name != other, NC_ENAMEINUSE, entry);
        require(bits != otherBits, NC_EINVAL, entry);
    }
}

void requireNewField(int ncid, nc_type compound, const FieldPlan& plan, const OperationEntry* entry)
{
    std::size_t size = 0;
    std::size_t count = 0;
    checkStatus(nc_inq_compound(ncid, compound, nullptr, &size, &count), entry);
    int number = 0;
    const int found = nc_inq_compound_fieldindex(ncid, compound, plan.name.c_str(), &number);
    require(found != NC_NOERR, NC_ENAMEINUSE, entry);
    if (found != NC_EBADFIELD)
        checkStatus(found, entry);
    checkStatus(nc_inq_type(ncid, plan.xtype, nullptr, nullptr), entry);
    const std::optional<int> group = groupOfType(ncid, compound, entry);
    require(!isUserType(plan.xtype) ||
                isWrittenBefore(group.value_or(ncid), plan.xtype, compound, entry),
            NC_EBADTYPE, entry);

    require(plan.lengths.size() <= mostArrayDimensions, NC_EINVAL, entry);
    const std::size_t bytes = bytesOf(ncid, plan.xtype, plan.lengths, entry);
    require(plan.offset <= size && bytes <= size - plan.offset, NC_EINVAL, entry);
    for (std::size_t i = 0; i < count; ++i)
        requireNoOverlap(ncid, compound, static_cast<int>(i), plan.offset, plan.offset + bytes,
                         entry);
}

} // namespace Ovard::gridio
