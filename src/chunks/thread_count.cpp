// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/thread_count.h"

#include <algorithm>
#include <thread>

namespace Ovard::gridio {
namespace {

constexpr std::size_t mostByDefault = 16; // more would need a faster disk and memory

std::size_t chosen = 0; // 0: none

} // namespace

std::size_t threadCount()
{
    if (chosen > 0)
        return chosen;
    // Respects the affinity of the process; 0 if that is unknown.
    const std::size_t running = std::thread::hardware_concurrency();
    return std::clamp<std::size_t>(running, 1, mostByDefault);
}

void setThreadCount(std::size_t count) { chosen = std::min(count, mostThreads); }

} // namespace Ovard::gridio
