// SPDX-License-Identifier: BSD-3-Clause
// How many threads share the work of one call.
#pragma once

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t mostThreads = 256;

// The calling one included: as many as the machine runs at once, at most 16, unless set otherwise.
std::size_t threadCount();

// At most mostThreads; 0 goes back to the number that is usual.
void setThreadCount(std::size_t count);

} // namespace Ovard::gridio
