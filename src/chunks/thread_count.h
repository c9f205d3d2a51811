// SPDX-License-Identifier: BSD-3-Clause
// The number of threads that share the work of one call. Hosts see it as threadCount() of
// session_report.h.
//
// The user's choice is the environment variable GRIDIO_THREADS: a number from 1 to mostThreads. It
// may be set before the host starts or while it runs, and outlasts the unloading of the module.
#pragma once

#include "session_report.h"

#include <cstddef>

namespace Ovard::gridio {

constexpr std::size_t mostThreads = 256;

// Whether the user has chosen 1, and so the library's own way wherever it has one.
bool isLibraryChosen();

// For this process, whatever the user's choice: at most mostThreads; 0 goes back to it.
void setThreadCount(std::size_t count);

} // namespace Ovard::gridio
