// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/block_indices.h"

namespace Ovard::gridio {

std::optional<BlockIndices> blockIndices(Variable& variable, const Block& block)
{
    const SizeVector& lengths = variable.lengths();
    std::optional<BlockIndices> indices(std::in_place, lengths.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (block.count[i] == 0 || block.stride[i] <= 0 || block.start[i] >= lengths[i])
            return std::nullopt;
        const auto step = static_cast<std::size_t>(block.stride[i]);
        (*indices)[i] = {block.start[i], block.count[i], step};
        if (block.count[i] - 1 > (lengths[i] - 1 - block.start[i]) / step)
            return std::nullopt;
    }
    return indices;
}

} // namespace Ovard::gridio
