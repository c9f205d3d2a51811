// SPDX-License-Identifier: BSD-3-Clause
#include "convert/name_buffer.h"

#include <sys/mman.h>

#include <cstddef>
#include <new>

namespace Ovard::gridio {
namespace {

// The library takes no piece of a header that is longer than two of the blocks it reads, and those
// have 256 MiB at most. Where so many addresses are not to be had, as many as there are.
constexpr std::size_t mostBytes = std::size_t{1} << 29;
constexpr std::size_t fewestBytes = std::size_t{1} << 16;

class Reservation {
public:
    Reservation()
    {
        while (!reserve()) {
            size_ /= 2;
            if (size_ < fewestBytes)
                throw std::bad_alloc();
        }
    }
    ~Reservation() { static_cast<void>(munmap(memory_, size_)); } // nobody is left to be told
    Reservation(const Reservation&) = delete;
    Reservation& operator=(const Reservation&) = delete;

    char* get() const { return static_cast<char*>(memory_); }

private:
    bool reserve()
    {
        constexpr int flags = MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE;
        memory_ = mmap(nullptr, size_, PROT_READ | PROT_WRITE, flags, -1, 0);
        return memory_ != MAP_FAILED;
    }

    void* memory_ = nullptr;
    std::size_t size_ = mostBytes;
};

} // namespace

char* nameBuffer()
{
    // The compiler's start of a static object has two ways that are never taken: another thread has
    // made it meanwhile, though the host calls from one; it fails, though not under its guard.
    static const Reservation reservation;
    return reservation.get();
}

} // namespace Ovard::gridio
