// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unaligned_compounds.h"

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

} // namespace Ovard::gridio
