// SPDX-License-Identifier: BSD-3-Clause
// Values of a type as the library leaves them in memory.
#pragma once

#include "convert/host_memory.h"
#include "types/places.h"
#include "types/type_description.h"

namespace Ovard::gridio {

// Memory for count values, and for the strings and vlens that the library allocates within them,
// released at the end of the scope. It is zeroed first: a zeroed value owns no memory, so releasing
// is safe at any time.
class LibraryValues {
public:
    // Raises the host's out-of-memory error; throws a Boost overflow for more bytes than can be
    // counted.
    LibraryValues(const Type& type, std::size_t count);
    ~LibraryValues();
    LibraryValues(const LibraryValues&) = delete;
    LibraryValues& operator=(const LibraryValues&) = delete;

    char* data() { return memory_.get(); }
    ReadPlaces places() const { return {memory_.get(), count_, type_.size}; }

private:
    const Type& type_;
    std::size_t count_;
    HostMemory<char> memory_;
};

// Zeroed memory for count values.
HostMemory<char> zeroedValues(const Type& type, std::size_t count);

} // namespace Ovard::gridio
