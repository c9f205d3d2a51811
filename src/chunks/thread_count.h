// SPDX-License-Identifier: BSD-3-Clause
// The number of threads that share the work of one call.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t mostThreads = 256;

// Including the calling thread: as many as the machine runs at once, at most 16, unless set
// otherwise.
std::size_t threadCount();

// At most mostThreads; 0 restores the default.
void setThreadCount(std::size_t count);

} // namespace Ovard::gridio
