// SPDX-License-Identifier: BSD-3-Clause
#include "result_memory.h"

#include <cstdint>
#include <new>

#include <sys/mman.h>

namespace hosts::oct {

namespace {

constexpr size_t largeBlock = size_t{4} << 20;
constexpr std::uintptr_t hugePage = std::uintptr_t{2} << 20;

// From this size on malloc maps each block separately, so that aligning it does not split another
// one.
constexpr size_t mappedBlock = (size_t{32} << 20) + 1;

// Otherwise mapped blocks begin 16 bytes after the start of a page, and the system takes up to a
// quarter longer to copy a file there.
void* newBlock(size_t bytes)
{
#ifdef __GLIBCXX__
    // Deliberately aligned, although the interpreter releases it as if it were not: operator delete
    // is free() for both.
    constexpr std::align_val_t cacheLine{64};
    if (bytes >= mappedBlock)
        return ::operator new(bytes, cacheLine);
#endif
    return ::operator new(bytes);
}

} // namespace

void adviseHugePages(void* block, size_t bytes)
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

void* newElements(size_t count, size_t elementSize)
{
    if (count > PTRDIFF_MAX / elementSize)
        throw std::bad_alloc();
    const size_t bytes = count * elementSize;
    void* block = newBlock(bytes);
    adviseHugePages(block, bytes);
    return block;
}

} // namespace hosts::oct
