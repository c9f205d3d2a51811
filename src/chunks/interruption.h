// SPDX-License-Identifier: BSD-3-Clause
// Checks from time to time whether the user has interrupted a long operation.
#pragma once

#include "vx/interrupt.h"

#include <chrono>

namespace Ovard::gridio {

class Interruption {
public:
    // Raises the host's interrupt if the user has requested one. Meant to be called often: it asks
    // the host only every few milliseconds.
    void check()
    {
        const auto now = std::chrono::steady_clock::now();
        if (now < next_)
            return;
        next_ = now + interval;
        if (!vxContinue())
            vxRaiseInterrupt();
    }

private:
    static constexpr std::chrono::milliseconds interval{4};

    std::chrono::steady_clock::time_point next_; // so that the first call asks
};

} // namespace Ovard::gridio
