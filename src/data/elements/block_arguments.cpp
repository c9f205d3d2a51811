// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/block_arguments.h"

#include "data/elements/shapes.h"
#include "error_identifiers.h"

namespace Ovard::gridio {

Block readBlockArguments(const vxArray* const vectors[], int vectorCount)
{
    Block block;
    block.start = toSizeVector(vectors[0], "START");
    const std::size_t rank = block.start.size();
    block.count = vectorCount > 1 ? toSizeVector(vectors[1], "COUNT") : SizeVector(rank, 1);
    block.stride = vectorCount > 2 ? toStrideVector(vectors[2], "STRIDE") : StrideVector(rank, 1);
    return block;
}

void requireMatchingLengths(const Block& block, const Variable& variable, Access access)
{
    const auto require = [&](const char* label, std::size_t required, std::size_t length,
                             std::size_t shown) {
        if (length != required)
            vxErrMsgId(netcdf::badIndexArgumentLength(
                label, variable.name(), static_cast<long>(required), static_cast<long>(shown)));
    };

    const std::size_t rank = block.start.size();
    require("START", variable.rank(), rank, rank);
    const auto shown = [&](std::size_t given) { return access == Access::read ? rank : given; };
    require("COUNT", rank, block.count.size(), shown(block.count.size()));
    require("STRIDE", rank, block.stride.size(), shown(block.stride.size()));
}

void requireMatchingCount(const Block& block, std::size_t given)
{
    const std::size_t product = productOf(block.count);
    if (product != given)
        vxErrMsgId(
            netcdf::countNotEqualToData(static_cast<long>(product), static_cast<long>(given)));
}

} // namespace Ovard::gridio
