// SPDX-License-Identifier: BSD-3-Clause
// A block of a variable as indices along each dimension.
#pragma once

#include "chunks/chunk_walk.h"
#include "data/elements/blocks.h"

#include <optional>

namespace Ovard::gridio {

// None if the library is to refuse the block, or has nothing to read of it.
std::optional<BlockIndices> blockIndices(Variable& variable, const Block& block);

} // namespace Ovard::gridio
