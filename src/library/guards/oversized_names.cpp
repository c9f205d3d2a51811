// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/oversized_names.h"

#include <sys/mman.h>

#include <cstddef>
#include <new>

namespace Ovard::gridio {
namespace {

// The library rejects header items longer than two read blocks of at most 256 MiB each. If that
// much address space is unavailable, the reservation is halved until it fits.
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
    ~Reservation() { static_cast<void>(munmap(memory_, size_)); } // no caller to report to
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
    static const Reservation reservation;
    return reservation.get();
}

} // namespace Ovard::gridio
