// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/name_buffer.h"

#include <sys/mman.h>

#include <cstddef>
#include <cstring>

namespace hosts::messages {

namespace {

class Reservation {
public:
    Reservation() = default;
    ~Reservation()
    {
        if (memory_ != MAP_FAILED)
            static_cast<void>(munmap(memory_, size)); // a failure is ignored: it has no remedy
    }
    Reservation(const Reservation&) = delete;
    Reservation& operator=(const Reservation&) = delete;

    // Tried again after a failure: address space may have become free.
    char* get()
    {
        if (memory_ == MAP_FAILED) {
            constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
            memory_ = mmap(nullptr, size, PROT_READ | PROT_WRITE, flags, -1, 0);
        }
        return memory_ == MAP_FAILED ? nullptr : static_cast<char*>(memory_);
    }

private:
    // The library rejects header items longer than two read blocks of at most 256 MiB each.
    static constexpr std::size_t size = std::size_t{1} << 29;

    void* memory_ = MAP_FAILED;
};

Reservation reservation;

} // namespace

char* nameBuffer() { return reservation.get(); }

std::string bufferedName()
{
    constexpr std::size_t longestText = 1024;
    const char* first = nameBuffer();
    return first == nullptr ? "" : std::string(first, strnlen(first, longestText));
}

} // namespace hosts::messages
