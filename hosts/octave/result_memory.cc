// SPDX-License-Identifier: BSD-3-Clause
#include "result_memory.h"

#include "hosts/memory/large_blocks.h"

#include <cstdint>
#include <new>

namespace hosts::oct {

namespace {

void* newBlock(size_t bytes)
{
#ifdef __GLIBCXX__
    // Deliberately aligned, although the interpreter releases it as if it were not: operator delete
    // is free() for both.
    if (const size_t alignment = memory::alignmentOf(bytes))
        return ::operator new (bytes, std::align_val_t{alignment});
#endif
    return ::operator new(bytes);
}

} // namespace

void* newElements(size_t count, size_t elementSize)
{
    if (count > PTRDIFF_MAX / elementSize)
        throw std::bad_alloc();
    const size_t bytes = count * elementSize;
    void* block = newBlock(bytes);
    memory::adviseHugePages(block, bytes);
    return block;
}

} // namespace hosts::oct
