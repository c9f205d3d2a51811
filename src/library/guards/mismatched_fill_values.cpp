// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/mismatched_fill_values.h"

#include "check_status.h"
#include "library/storage_model.h"

namespace Ovard::gridio {

void requireMatchingFillValue(int ncid, int varid, const std::string& attribute, nc_type xtype,
                              std::size_t count, const OperationEntry* entry)
{
    if (attribute != "_FillValue" || varid == NC_GLOBAL || !isStoredInHdf5(ncid))
        return;
    nc_type own = NC_NAT;
    checkStatus(nc_inq_vartype(ncid, varid, &own), entry);
    if (count != 1)
        raiseLibraryFailure(NC_EINVAL, entry);
    if (own != xtype)
        raiseLibraryFailure(NC_EBADTYPE, entry);
}

} // namespace Ovard::gridio
