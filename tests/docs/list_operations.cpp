// SPDX-License-Identifier: BSD-3-Clause
// Prints the operation tables, one row a line: the function that calls it, name, number of
// arguments, and the name of the first row with the same handler.
#include "gateway/any_operation_table.h"
#include "gateway/operation_table.h"

#include <algorithm>
#include <cstdio>
#include <iterator>

namespace {

template <class Table> void list(const char* function, const Table& table)
{
    using Ovard::gridio::OperationEntry;

    for (const OperationEntry& entry : table) {
        const OperationEntry* first =
            std::find_if(std::begin(table), std::end(table), [&](const OperationEntry& other) {
                return other.handler == entry.handler;
            });
        std::printf("%s %s %u %s\n", function, entry.name, static_cast<unsigned>(entry.nargs),
                    first->name);
    }
}

} // namespace

int main()
{
    list("gridio", Ovard::gridio::operationTable);
    list("gridio_any", Ovard::gridio::anyOperationTable);
}
