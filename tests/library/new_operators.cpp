// SPDX-License-Identifier: BSD-3-Clause
#include "tests/library/new_operators.h"

#include <algorithm>
#include <new>

namespace {

constexpr std::align_val_t ordinary{alignof(std::max_align_t)};

void* allocate(std::size_t size, std::align_val_t alignment = ordinary)
{
    return testsupport::allocateForNew(std::max<std::size_t>(size, 1),
                                       static_cast<std::size_t>(std::max(alignment, ordinary)));
}

void* tryToAllocate(std::size_t size, std::align_val_t alignment = ordinary) noexcept
{
    try {
        return allocate(size, alignment);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

void release(void* block) noexcept
{
    if (block != nullptr)
        testsupport::releaseFromDelete(block);
}

} // namespace

// Every form of the operators, each in terms of allocate and release: the address sanitizer has its
// own of those that are missing here, and reports a block that one family allocates and the other
// releases.
void* operator new(std::size_t size) { return allocate(size); }
void* operator new[](std::size_t size) { return allocate(size); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return tryToAllocate(size); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept
{
    return tryToAllocate(size);
}
void* operator new(std::size_t size, std::align_val_t alignment)
{
    return allocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment)
{
    return allocate(size, alignment);
}
void* operator new(std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return tryToAllocate(size, alignment);
}
void* operator new[](std::size_t size, std::align_val_t alignment, const std::nothrow_t&) noexcept
{
    return tryToAllocate(size, alignment);
}

void operator delete(void* block) noexcept { release(block); }
void operator delete[](void* block) noexcept { release(block); }
void operator delete(void* block, std::size_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t) noexcept { release(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { release(block); }
void operator delete(void* block, std::align_val_t) noexcept { release(block); }
void operator delete[](void* block, std::align_val_t) noexcept { release(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { release(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { release(block); }
void operator delete(void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
    release(block);
}
void operator delete[](void* block, std::align_val_t, const std::nothrow_t&) noexcept
{
    release(block);
}
