// SPDX-License-Identifier: BSD-3-Clause
// What the library says of reads and writes, found out by ones of no elements. They also make the
// library write to the file what was defined and leave define mode, as any other would.
#pragma once

#include "data/elements/variable.h"

namespace Ovard::gridio {

// NC_NOERR, or NC_ENOFILTER if the library knows the variable but lacks a filter for it, or why it
// does not read it.
int readStatus(const Variable& variable);

// Whether the library would write the variable.
bool isWritable(const Variable& variable);

} // namespace Ovard::gridio
