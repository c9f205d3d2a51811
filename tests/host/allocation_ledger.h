// SPDX-License-Identifier: BSD-3-Clause
// A ledger of what the module allocates, around the vx functions of whichever host it is linked
// with (CMakeLists.txt wraps them). It knows nothing of the host.
#pragma once

#include <cstddef>

namespace contract {

// Since the last call of startLedger.
struct Ledger {
    std::size_t blocksLive = 0;  // of vxCalloc and vxArrayToString, not freed yet
    std::size_t strayFrees = 0;  // of memory that neither of them returned
    std::size_t allocations = 0; // of blocks and arrays
};

// Clears the ledger. If failing is not 0, that allocation asks the host for more memory than there
// can be, so that the host raises its own error.
void startLedger(std::size_t failing = 0);

const Ledger& ledger();

} // namespace contract
