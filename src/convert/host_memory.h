// SPDX-License-Identifier: BSD-3-Clause
// Memory of the host's allocator, released on every way out.
#pragma once

#include "vx/array.h"

#include <memory>

namespace Ovard::gridio {

struct ReleaseHostMemory {
    void operator()(void* memory) const { vxFree(memory); }
};

// Owns what vxArrayToString or vxCalloc returned; may hold nothing.
template <class T> using HostMemory = std::unique_ptr<T, ReleaseHostMemory>;

} // namespace Ovard::gridio
