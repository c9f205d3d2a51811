// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/block_indices.h"

namespace Ovard::gridio {

std::optional<BlockIndices> blockIndices(Variable& variable, const Block& block)
{
    const SizeVector& lengths = variable.lengths();
    BlockIndices indices(lengths.size());
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (block.count[i] == 0 || block.stride[i] <= 0 || block.start[i] >= lengths[i])
            return std::nullopt;
        indices[i] = {block.start[i], block.count[i], static_cast<std::size_t>(block.stride[i])};
        if (block.count[i] - 1 > (lengths[i] - 1 - block.start[i]) / indices[i].step)
            return std::nullopt;
    }
    return indices;
}

} // namespace Ovard::gridio
