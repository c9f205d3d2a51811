// SPDX-License-Identifier: BSD-3-Clause
// Blocks cut into slabs for the library.
#pragma once

#include "chunks/chunk_walk.h"
#include "data/elements/blocks.h"

namespace Ovard::gridio {

// Those of the variable; ones where it has none. Of chunks that a slab takes a part of, each is
// unpacked once more for the next slab.
SizeVector chunkLengths(const Variable& variable);

// The lengths of slabs, as those of chunks for a ChunkWalk: whole chunks, so that none is packed or
// unpacked twice, as many as make up the number of elements, from the innermost dimension outwards.
SizeVector slabLengths(const BlockIndices& block, const SizeVector& chunkLengths,
                       std::size_t elements);

// The block of the variable that is a slab of another one.
Block slabOf(const BlockIndices& block, const Spans& spans);

} // namespace Ovard::gridio
