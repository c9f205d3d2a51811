// SPDX-License-Identifier: BSD-3-Clause
// The status that the library would give for reads and writes, found by ones of no elements. Like
// any others, they make the library write pending definitions to the file and leave define mode.
#pragma once

#include "data/elements/variable.h"

namespace Ovard::gridio {

// NC_NOERR, NC_ENOFILTER if the library knows the variable but lacks one of its filters, or the
// status with which it refuses the read.
int readStatus(const Variable& variable);

// Whether the library would accept a write of the variable.
bool isWritable(const Variable& variable);

} // namespace Ovard::gridio
