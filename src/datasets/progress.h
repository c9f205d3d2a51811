// SPDX-License-Identifier: BSD-3-Clause
// Tells the host how far a long operation is.
#pragma once

#include "vx/progress.h"

#include <cstddef>

namespace Ovard::gridio {

class Progress {
public:
    // Of an operation that handles so many elements.
    explicit Progress(std::size_t elements) : elements_(elements) { vxShowProgress(0); }
    ~Progress() { vxShowProgress(-1); }
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    void add(std::size_t elements)
    {
        done_ += elements;
        vxShowProgress(static_cast<double>(done_) / static_cast<double>(elements_));
    }

private:
    std::size_t elements_;
    std::size_t done_ = 0;
};

} // namespace Ovard::gridio
