// SPDX-License-Identifier: BSD-3-Clause
// Preloaded into a session: operator new and delete as the standard has them and no laxer. The
// process ends when a form of delete releases what another family of new has allocated.
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <new>

namespace {

// Aligned blocks that are in use, by their addresses: each array of the interpreter is one where it
// has polymorphic allocators.
std::array<std::array<std::atomic<void*>, 16>, 1 << 16> alignedBlocks;

bool replaceFirst(const void* block, void* from, void* to)
{
    const std::uint64_t mixed = reinterpret_cast<std::uintptr_t>(block) * 0x9E3779B97F4A7C15U;
    for (std::atomic<void*>& slot : alignedBlocks[mixed >> 48]) {
        void* expected = from;
        if (slot.compare_exchange_strong(expected, to))
            return true;
    }
    return false;
}

[[noreturn]] void fail(const char* text, std::size_t length)
{
    static_cast<void>(!write(STDERR_FILENO, text, length));
    _exit(99);
}

void* allocate(std::size_t size)
{
    if (void* block = std::malloc(size == 0 ? 1 : size))
        return block;
    throw std::bad_alloc();
}

void* allocateAligned(std::size_t size, std::align_val_t alignment)
{
    void* block = nullptr;
    if (posix_memalign(
            &block,
            std::max<std::size_t>(static_cast<std::size_t>(alignment), alignof(std::max_align_t)),
            size) != 0)
        throw std::bad_alloc();
    if (!replaceFirst(block, nullptr, block))
        fail("too many aligned blocks\n", 24);
    return block;
}

void release(void* block)
{
    if (block != nullptr && replaceFirst(block, block, nullptr))
        fail("a plain delete of an aligned block\n", 35);
    std::free(block);
}

void releaseAligned(void* block)
{
    if (block != nullptr && !replaceFirst(block, block, nullptr))
        fail("an aligned delete of a plain block\n", 35);
    std::free(block);
}

} // namespace

void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocateAligned(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return allocateAligned(size, alignment);
}
void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, std::align_val_t) noexcept { releaseAligned(block); }
void operator delete[](void* block, std::align_val_t) noexcept { releaseAligned(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { releaseAligned(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept
{
    releaseAligned(block);
}
