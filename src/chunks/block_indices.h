// SPDX-License-Identifier: BSD-3-Clause
// A block of a variable as indices along each dimension.
#pragma once

#include "chunks/chunk_walk.h"
#include "data/elements/blocks.h"

#include <optional>

namespace Ovard::gridio {

// None if the library must report an error for the block, or the block has no elements.
std::optional<BlockIndices> blockIndices(Variable& variable, const Block& block);

} // namespace Ovard::gridio
