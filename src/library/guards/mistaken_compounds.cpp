// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/mistaken_compounds.h"

#include "check_status.h"

namespace Ovard::gridio {

void requireCompound(int ncid, nc_type xtype, const OperationEntry* entry)
{
    checkStatus(nc_inq_compound(ncid, xtype, nullptr, nullptr, nullptr), entry);
}

} // namespace Ovard::gridio
