// SPDX-License-Identifier: BSD-3-Clause
// START, COUNT and STRIDE as the arguments of an operation on a block.
#pragma once

#include "data/elements/blocks.h"

namespace Ovard::gridio {

// Reads START and as many of COUNT and STRIDE as are given: what is missing becomes ones.
Block readBlockArguments(const vxArray* const vectors[], int vectorCount);

enum class Access { read, write };

// Raises badIndexArgumentLength unless the vectors have one element for each dimension of the
// variable. For COUNT and STRIDE a read deliberately reports the required length twice, a write
// also the length that was given.
void requireMatchingLengths(const Block& block, const Variable& variable, Access access);

// Raises countNotEqualToData unless the block has as many elements as were given.
void requireMatchingCount(const Block& block, std::size_t given);

} // namespace Ovard::gridio
