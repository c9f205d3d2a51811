// SPDX-License-Identifier: BSD-3-Clause
// The resources of one call of gridio: every array that the module sees or creates, and small
// memory blocks. In most calls they all fit into the object itself, on the stack.
#pragma once

#include "array.h"

#include <cstddef>
#include <cstdlib>
#include <forward_list>
#include <memory>
#include <new>
#include <utility>
#include <vector>

namespace hosts::oct {

class Call {
public:
    Call() : outer_(current_) { current_ = this; }
    ~Call();
    Call(const Call&) = delete;
    Call& operator=(const Call&) = delete;

    // The running call; the innermost one if a warning's handler has called again.
    static Call& current() { return *current_; }
    static bool isRunning() { return current_ != nullptr; }

    // A new array, released at the end of the call.
    template <class... Arguments> vxArray* add(Arguments&&... arguments)
    {
        if (arrayCount_ == inlineArrays)
            return &moreArrays_.emplace_front(std::forward<Arguments>(arguments)...);
        void* place = arrays_ + arrayCount_ * sizeof(vxArray);
        vxArray* array = ::new (place) vxArray(std::forward<Arguments>(arguments)...);
        ++arrayCount_;
        return array;
    }

    // Releases an array now, if it is the newest, so that a million arrays put into a cell array
    // one after the other do not accumulate.
    void drop(vxArray* array)
    {
        if (!moreArrays_.empty() && &moreArrays_.front() == array) {
            moreArrays_.pop_front();
        } else if (moreArrays_.empty() && arrayCount_ > 0 && at(arrayCount_ - 1) == array) {
            array->~vxArray();
            --arrayCount_;
        }
    }

    // Memory released at the end of the call, aligned for any element, uninitialised or zeroed.
    // Large zeroed memory costs nothing until it is written to.
    void* allocate(size_t bytes);
    void* allocateZeros(size_t count, size_t size);

    // The same if it fits into the object itself, null otherwise.
    void* allocateInline(size_t bytes);

    // True for memory from allocateInline, which is then reused if it was the last.
    bool releaseInline(void* memory);

private:
    static constexpr size_t inlineArrays = 16;
    static constexpr size_t inlineBytes = 4096;

    struct Free {
        void operator()(void* memory) const { std::free(memory); }
    };

    vxArray* at(size_t index)
    {
        return std::launder(reinterpret_cast<vxArray*>(arrays_ + index * sizeof(vxArray)));
    }

    void* keep(void* block, size_t bytes);

    static Call* current_;

    Call* outer_;
    size_t arrayCount_ = 0;
    size_t usedBytes_ = 0;
    size_t lastStart_ = 0;
    std::forward_list<vxArray> moreArrays_;
    std::vector<std::unique_ptr<void, Free>> blocks_;
    alignas(vxArray) unsigned char arrays_[inlineArrays * sizeof(vxArray)];
    alignas(std::max_align_t) unsigned char bytes_[inlineBytes];
};

} // namespace hosts::oct
