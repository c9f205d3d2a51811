// SPDX-License-Identifier: BSD-3-Clause
#include "call.h"

#include "hosts/memory/large_blocks.h"

#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>

namespace hosts::oct {

namespace {

size_t bytesOf(size_t count, size_t size)
{
    if (size != 0 && count > PTRDIFF_MAX / size)
        throw std::bad_alloc();
    return count * size;
}

} // namespace

Call* Call::current_ = nullptr;

Call::~Call()
{
    for (size_t i = arrayCount_; i-- > 0;)
        at(i)->~vxArray();
    current_ = outer_;
}

void* Call::allocateInline(size_t bytes)
{
    constexpr size_t alignment = alignof(std::max_align_t);
    if (bytes > inlineBytes - usedBytes_)
        return nullptr;
    lastStart_ = usedBytes_;
    usedBytes_ += (bytes + alignment - 1) / alignment * alignment;
    return bytes_ + lastStart_;
}

void* Call::allocate(size_t bytes)
{
    void* memory = allocateInline(bytes);
    return memory ? memory : keep(std::malloc(bytes), bytes);
}

void* Call::allocateZeros(size_t count, size_t size)
{
    void* memory = allocateInline(bytesOf(count, size));
    return memory ? std::memset(memory, 0, count * size)
                  : keep(std::calloc(count, size), count * size);
}

void* Call::keep(void* block, size_t bytes)
{
    std::unique_ptr<void, Free> owner(block);
    if (!block)
        throw std::bad_alloc();
    memory::adviseHugePages(block, bytes);
    blocks_.push_back(std::move(owner));
    return block;
}

bool Call::releaseInline(void* memory)
{
    const std::less<const void*> before;
    if (before(memory, bytes_) || !before(memory, bytes_ + inlineBytes))
        return false;
    if (memory == bytes_ + lastStart_)
        usedBytes_ = lastStart_;
    return true;
}

} // namespace hosts::oct

using hosts::oct::Call;

void* vxCalloc(size_t count, size_t size)
{
    const size_t bytes = hosts::oct::bytesOf(count, size);
    if (void* memory = Call::isRunning() ? Call::current().allocateInline(bytes) : nullptr)
        return std::memset(memory, 0, bytes);
    // A zero-sized block may be null.
    void* memory = std::calloc(bytes ? bytes : 1, 1);
    if (!memory)
        throw std::bad_alloc();
    hosts::memory::adviseHugePages(memory, bytes);
    return memory;
}

void vxFree(void* memory)
{
    if (!Call::isRunning() || !Call::current().releaseInline(memory))
        std::free(memory);
}
