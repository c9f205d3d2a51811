// SPDX-License-Identifier: BSD-3-Clause
// Blocks of a variable, decoded, as arrays of the host.
#pragma once

#include "data/elements/blocks.h"
#include "datasets/decoding_rules.h"

namespace Ovard::gridio {

// START, COUNT and STRIDE; empty for a variable without dimensions. Raises what readBlockArguments
// and requireMatchingLengths raise, and the library's failures for what is not in the variable.
Block readDatasetBlock(const vxArray* const vectors[], Variable& variable);

// A sum of DecodingFlags. Raises badArgument for any other number.
unsigned readDecodingFlags(const vxArray* a);

// The block in the host's order. Values that are no numbers come as "getVars" of the second table
// has them. Raises the library's failures and the host's interrupt.
vxArray* readDecoded(Variable& variable, const Block& block, unsigned flags);

} // namespace Ovard::gridio
