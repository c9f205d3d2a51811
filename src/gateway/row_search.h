// SPDX-License-Identifier: BSD-3-Clause
// The search for a name in a table of operations: a linear scan that compares a short key first, to
// skip most rows.
#pragma once

#include "error_identifiers.h"
#include "operation_entry.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <string>

namespace Ovard::gridio {

// Three characters and the length, packed into 32 bits, rule out most rows before their names are
// compared.
constexpr std::uint32_t keyOf(const char* name, std::size_t length)
{
    const auto at = [name](std::size_t i) {
        return std::uint32_t{static_cast<unsigned char>(name[i])};
    };
    const std::size_t last = length == 0 ? 0 : length - 1;
    return at(0) | at(length / 2) << 8 | at(last) << 16 |
           static_cast<std::uint32_t>(length & 0xFF) << 24;
}

template <std::size_t count> using RowKeys = std::array<std::uint32_t, count>;

template <std::size_t count> constexpr RowKeys<count> keysOf(const OperationEntry (&table)[count])
{
    RowKeys<count> result{};
    for (std::size_t i = 0; i < count; ++i) {
        const char* name = table[i].name;
        result[i] = keyOf(name, std::char_traits<char>::length(name));
    }
    return result;
}

// The first row of that name. Raises unrecognizedOperation with the name when there is none, and
// wrongNumberOfInputs when that first row expects another number of arguments, even if a later row
// of the same name expects this number. A null name is unrecognized, with an empty text.
template <std::size_t count>
const OperationEntry* findRow(const OperationEntry (&table)[count], const RowKeys<count>& keys,
                              const char* name, unsigned nargs)
{
    if (name == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(""));

    const std::uint32_t key = keyOf(name, std::strlen(name));
    for (auto row = std::find(keys.begin(), keys.end(), key); row != keys.end();
         row = std::find(row + 1, keys.end(), key)) {
        const OperationEntry& entry = table[row - keys.begin()];
        if (std::strcmp(name, entry.name) != 0)
            continue;
        if (entry.nargs != nargs)
            vxErrMsgId(validate::wrongNumberOfInputs());
        return &entry;
    }
    vxErrMsgId(netcdf::unrecognizedOperation(name));
}

} // namespace Ovard::gridio
