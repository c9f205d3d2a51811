// SPDX-License-Identifier: BSD-3-Clause
// Where the library writes a name while a message is made.
#pragma once

#include <sys/mman.h>

#include <cstddef>
#include <cstring>
#include <string>

namespace hosts::messages {

// A buffer for a name of any length: the library copies what a classic file holds whole, without
// reporting its length first, and a damaged or hostile file may hold up to half a gibibyte. Only
// address space is reserved.
class NameRoom {
public:
    NameRoom() = default;
    ~NameRoom()
    {
        if (memory_ != MAP_FAILED)
            static_cast<void>(munmap(memory_, size)); // nothing could be done about a failure
    }
    NameRoom(const NameRoom&) = delete;
    NameRoom& operator=(const NameRoom&) = delete;

    // Null when there are not so many addresses.
    char* get()
    {
        if (memory_ == MAP_FAILED) {
            constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
            memory_ = mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0);
        }
        return memory_ == MAP_FAILED ? nullptr : static_cast<char*>(memory_);
    }

    // As much of what the library wrote as a message may show.
    std::string text() const
    {
        const char* first = static_cast<const char*>(memory_);
        return std::string(first, strnlen(first, longestText));
    }

private:
    static constexpr std::size_t size = std::size_t{1} << 29;
    static constexpr std::size_t longestText = 1024;

    void* memory_ = MAP_FAILED;
};

} // namespace hosts::messages
