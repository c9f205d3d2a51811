// SPDX-License-Identifier: BSD-3-Clause
// START, COUNT and STRIDE as the arguments of an operation on a block.
#pragma once

#include "data/elements/blocks.h"

namespace Ovard::gridio {

// Reads START and those of COUNT and STRIDE that are given; a missing one becomes all ones.
Block readBlockArguments(const vxArray* const vectors[], int vectorCount);

enum class Access { read, write };

// Raises badIndexArgumentLength unless the vectors have one element for each dimension of the
// variable. For COUNT and STRIDE a read deliberately reports the required length twice; a write
// reports the required and the given length.
void requireMatchingLengths(const Block& block, const Variable& variable, Access access);

// Raises countNotEqualToData unless the block has as many elements as the data.
void requireMatchingCount(const Block& block, std::size_t given);

} // namespace Ovard::gridio
