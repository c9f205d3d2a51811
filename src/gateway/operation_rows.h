// SPDX-License-Identifier: BSD-3-Clause
// The rows of a table of operations, however many it has.
#pragma once

#include "operation_entry.h"

#include <cstddef>

namespace Ovard::gridio {

class OperationRows {
public:
    template <std::size_t count>
    constexpr explicit OperationRows(const OperationEntry (&rows)[count])
        : first_(rows), count_(count)
    {
    }

    constexpr const OperationEntry* begin() const { return first_; }
    constexpr const OperationEntry* end() const { return first_ + count_; }
    constexpr std::size_t size() const { return count_; }
    constexpr const OperationEntry& operator[](std::size_t i) const { return first_[i]; }

private:
    const OperationEntry* first_;
    std::size_t count_;
};

} // namespace Ovard::gridio
