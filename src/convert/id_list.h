// SPDX-License-Identifier: BSD-3-Clause
// The library's two-call pattern for lists of identifiers: first the count, then the list.
#pragma once

#include "check_status.h"
#include "convert/result_builders.h"

#include <vector>

namespace Ovard::gridio {

// inquire(int* count, int* ids) is the library call with its leading arguments bound; either
// pointer may be null. Returns the identifiers as a row, in the library's order.
template <class Inquire> vxArray* inquireIdRow(const OperationEntry* entry, Inquire&& inquire)
{
    int count = 0;
    checkStatus(inquire(&count, nullptr), entry);
    std::vector<int> ids(static_cast<std::size_t>(count));
    checkStatus(inquire(nullptr, ids.data()), entry);
    return idVectorToRow(ids);
}

} // namespace Ovard::gridio
