// SPDX-License-Identifier: BSD-3-Clause
// Memory from the host's allocator, released at the end of the scope.
#pragma once

#include "vx/array.h"

#include <memory>

namespace Ovard::gridio {

struct ReleaseHostMemory {
    void operator()(void* memory) const { vxFree(memory); }
};

// Owns the memory that vxArrayToString or vxCalloc returned; may be empty.
template <class T> using HostMemory = std::unique_ptr<T, ReleaseHostMemory>;

} // namespace Ovard::gridio
