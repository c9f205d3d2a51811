// SPDX-License-Identifier: BSD-3-Clause
// Asks the host now and then whether a long operation is to go on.
#pragma once

#include "vx/interrupt.h"

#include <chrono>

namespace Ovard::gridio {

class Interruption {
public:
    // Raises the host's interrupt if the user wants one. To be called often: it asks every few
    // milliseconds only.
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

    std::chrono::steady_clock::time_point next_; // the first call asks
};

} // namespace Ovard::gridio
