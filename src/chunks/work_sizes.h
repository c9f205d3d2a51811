// SPDX-License-Identifier: BSD-3-Clause
// How the chunks of one read or write are divided between threads.
#pragma once

#include "chunks/worker_pool.h"

#include <cstddef>

namespace Ovard::gridio {

// Bytes of chunks, packed and unpacked, that are in memory at any time: this many, or two chunks
// for each thread, whichever is more.
constexpr std::size_t memoryBound = std::size_t{64} << 20;

struct WorkSizes {
    std::size_t threads;
    std::size_t slots;        // pieces of work in memory
    std::size_t chunksInSlot; // of each piece
};

// One piece of work occupies another thread only if the caller does not wait for it.
WorkSizes workSizes(std::size_t chunks, std::size_t chunkSize, Caller caller = Caller::waits);

} // namespace Ovard::gridio
