// SPDX-License-Identifier: BSD-3-Clause
// A position within the values that a script gives, for errors.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace Ovard::gridio {

// A chain from the inside outwards, built on the stack while values are traversed; its text is
// composed only for an error. Elements and fields are counted from 1, in storage order.
class ValuePlace {
public:
    ValuePlace() = default; // the values as a whole

    ValuePlace element(std::size_t index) const { return {this, index, {}}; }
    ValuePlace field(std::size_t index, std::string_view name) const { return {this, index, name}; }

    // "field 2 'depth', element 7"; "the values" for the values as a whole.
    std::string text() const;

private:
    ValuePlace(const ValuePlace* outer, std::size_t index, std::string_view field)
        : outer_(outer), index_(index), field_(field)
    {
    }

    std::string ownText() const;

    const ValuePlace* outer_ = nullptr;
    std::size_t index_ = 0;
    std::string_view field_; // without a name, an element
};

} // namespace Ovard::gridio
