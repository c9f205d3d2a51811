// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/work_sizes.h"

#include "chunks/thread_count.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// Small chunks are dispatched several at a time: a piece of work should take much longer than
// dispatching it.
constexpr std::size_t workSize = std::size_t{128} << 10;

// Each thread works on one chunk; the rest of the bound is for queued work.
std::size_t slotCount(std::size_t threads, std::size_t bytesInSlot)
{
    if (threads == 1)
        return 1;
    const std::size_t fitting = std::max(memoryBound / bytesInSlot, 2 * threads);
    return std::min(fitting - threads, 2 * threads + 2);
}

} // namespace

WorkSizes workSizes(std::size_t chunks, std::size_t chunkSize, Caller caller)
{
    const std::size_t chunksInSlot = std::max<std::size_t>(workSize / chunkSize, 1);
    const std::size_t pieces = (chunks - 1) / chunksInSlot + 1;
    const std::size_t busy = caller == Caller::hasOtherWork ? pieces + 1 : pieces;
    const std::size_t threads = std::min(threadCount(), busy);
    return {threads, std::min(slotCount(threads, chunksInSlot * chunkSize), pieces), chunksInSlot};
}

} // namespace Ovard::gridio
