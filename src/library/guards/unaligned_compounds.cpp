// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unaligned_compounds.h"

#include "library/type_location.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

std::size_t roundedUp(std::size_t offset, std::size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

} // namespace

std::size_t CStructure::add(std::size_t size, std::size_t alignment)
{
    const std::size_t offset = roundedUp(end_, alignment);
    end_ = offset + size;
    alignment_ = std::max(alignment_, alignment);
    return offset;
}

std::size_t CStructure::size() const { return roundedUp(end_, alignment_); }

bool isReadAsDescribed(int ncid, nc_type xtype, std::size_t size,
                       const std::vector<std::size_t>& offsets, const OperationEntry* entry)
{
    const Hdf5Id stored = openStoredType(ncid, xtype, entry);
    if (!stored)
        return false;
    const QuietHdf5 quiet;
    const Hdf5Id native(H5Tget_native_type(stored.get(), H5T_DIR_DEFAULT));
    if (!native || H5Tget_size(native.get()) != size ||
        H5Tget_nmembers(native.get()) != static_cast<int>(offsets.size()))
        return false;
    for (unsigned i = 0; i < offsets.size(); ++i) {
        if (H5Tget_member_offset(native.get(), i) != offsets[i])
            return false;
    }
    return true;
}

} // namespace Ovard::gridio
