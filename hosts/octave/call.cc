// SPDX-License-Identifier: BSD-3-Clause
#include "call.h"

#include <cstdlib>
#include <cstring>
#include <functional>

namespace hosts::oct {

Call* Call::current_ = nullptr;

Call::~Call()
{
    for (size_t i = arrayCount_; i-- > 0;)
        std::launder(reinterpret_cast<vxArray*>(arrays_ + i * sizeof(vxArray)))->~vxArray();
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
    if (void* memory = allocateInline(bytes))
        return memory;
    blocks_.reserve(blocks_.size() + 1);
    blocks_.emplace_back(new unsigned char[bytes]);
    return blocks_.back().get();
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
    if (size != 0 && count > SIZE_MAX / size)
        throw std::bad_alloc();
    const size_t bytes = count * size;
    void* memory = Call::isRunning() ? Call::current().allocateInline(bytes) : nullptr;
    if (memory)
        return std::memset(memory, 0, bytes);
    memory = std::calloc(bytes ? bytes : 1, 1);
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

void vxFree(void* memory)
{
    if (!Call::isRunning() || !Call::current().releaseInline(memory))
        std::free(memory);
}
