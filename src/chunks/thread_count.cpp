// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/thread_count.h"

#include <algorithm>
#include <cstdlib>
#include <thread>

namespace Ovard::gridio {
namespace {

constexpr std::size_t mostByDefault = 16; // more would need a faster disk and memory

std::size_t fixed = 0; // 0: none

// The value of GRIDIO_THREADS; 0 if it is not set or not a number.
std::size_t chosenByUser()
{
    const char* text = std::getenv("GRIDIO_THREADS");
    if (text == nullptr || *text < '0' || *text > '9')
        return 0;
    char* end = nullptr;
    const unsigned long count = std::strtoul(text, &end, 10);
    return *end == '\0' ? std::min<std::size_t>(count, mostThreads) : 0;
}

} // namespace

std::size_t threadCount()
{
    const std::size_t chosen = fixed > 0 ? fixed : chosenByUser();
    if (chosen > 0)
        return chosen;
    // Respects the affinity of the process; 0 if that is unknown.
    const std::size_t running = std::thread::hardware_concurrency();
    return std::clamp<std::size_t>(running, 1, mostByDefault);
}

bool isLibraryChosen() { return fixed == 0 && chosenByUser() == 1; }

void setThreadCount(std::size_t count) { fixed = std::min(count, mostThreads); }

} // namespace Ovard::gridio
