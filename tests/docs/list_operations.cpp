// SPDX-License-Identifier: BSD-3-Clause
// Prints the operation table, one row a line: name, number of arguments, and the name of the first
// row with the same handler.
#include "gateway/operation_table.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

int main()
{
    using Ovard::gridio::OperationEntry;
    using Ovard::gridio::operationTable;

    for (const OperationEntry& entry : operationTable) {
        const OperationEntry* first = std::find_if(
            std::begin(operationTable), std::end(operationTable),
            [&](const OperationEntry& other) { return other.handler == entry.handler; });
        std::printf("%s %u %s\n", entry.name, static_cast<unsigned>(entry.nargs), first->name);
    }
}
