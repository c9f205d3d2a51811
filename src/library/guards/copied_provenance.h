// SPDX-License-Identifier: BSD-3-Clause
// Copying _NCProperties, the provenance attribute that the library generates: nc_copy_att of
// release 4.9.0 writes one byte past its own buffer.
#pragma once

#include "operation_entry.h"

#include <string>

namespace Ovard::gridio {

bool isProvenanceAttribute(int ncid, int varid, const std::string& name);

// Copies the provenance of a file to an attribute of another variable or file, by reading and
// writing it. Raises the failures of the library.
void copyProvenance(int fromNcid, int toNcid, int toVarid, const OperationEntry* entry);

} // namespace Ovard::gridio
