// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/memory/large_blocks.h"

#include <cstdint>

#include <sys/mman.h>

namespace hosts::memory {

namespace {

constexpr std::size_t largeBlock = std::size_t{4} << 20;
constexpr std::uintptr_t hugePage = std::uintptr_t{2} << 20;

// From this size on malloc maps each block separately, so that aligning it does not split another
// one.
constexpr std::size_t mappedBlock = (std::size_t{32} << 20) + 1;

} // namespace

// Otherwise mapped blocks begin 16 bytes after the start of a page, and the system takes up to a
// quarter longer to copy a file there than to a cache line.
std::size_t alignmentOf(std::size_t bytes)
{
    constexpr std::size_t cacheLine = 64;
    return bytes >= mappedBlock ? cacheLine : 0;
}

void adviseHugePages(void* block, std::size_t bytes)
{
    if (bytes < largeBlock)
        return;
    const auto begin = reinterpret_cast<std::uintptr_t>(block);
    const std::uintptr_t first = (begin + hugePage - 1) & ~(hugePage - 1);
    const std::uintptr_t last = (begin + bytes) & ~(hugePage - 1);
    // Requests only whole huge pages inside the block, so that no additional memory is used. This
    // is only advice, which a system without huge pages refuses.
    if (first < last)
        static_cast<void>(madvise(reinterpret_cast<void*>(first), last - first, MADV_HUGEPAGE));
}

} // namespace hosts::memory
