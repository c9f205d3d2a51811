// SPDX-License-Identifier: BSD-3-Clause
// Division of a block into slabs, which the library reads.
#pragma once

#include "chunks/chunk_walk.h"
#include "data/elements/blocks.h"

namespace Ovard::gridio {

// The chunk lengths of the variable; ones where it is not chunked. Slabs that cover chunks in part
// would unpack them again for the next slab.
SizeVector chunkLengths(const Variable& variable);

// The lengths of the slabs, usable as chunk lengths of a ChunkWalk. Slabs are whole chunks, so that
// none is packed or unpacked twice, as many as make up the number of elements, from the innermost
// dimension outwards.
SizeVector slabLengths(const BlockIndices& block, const SizeVector& chunkLengths,
                       std::size_t elements);

// The slab as a block of the variable.
Block slabOf(const BlockIndices& block, const Spans& spans);

} // namespace Ovard::gridio
