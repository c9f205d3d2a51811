// SPDX-License-Identifier: BSD-3-Clause
// Files in a forked process. A child's copies of its parent's open files have the state of the
// fork: when release 4.9.0 closes one, it writes the old number of records over a newer one.
#pragma once

#include <unistd.h>

namespace Ovard::gridio {

// The process that opened a file.
class OpeningProcess {
public:
    bool isThis() const { return id_ == getpid(); }

private:
    pid_t id_ = getpid();
};

} // namespace Ovard::gridio
