// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/foreign_layouts.h"

#include "library/type_location.h"

namespace Ovard::gridio {

bool isStoredAsInMemory(int ncid, nc_type xtype, const OperationEntry* entry)
{
    const Hdf5Id stored = openStoredType(ncid, xtype, entry);
    if (!stored)
        return true;
    const QuietHdf5 quiet;
    const Hdf5Id native(H5Tget_native_type(stored.get(), H5T_DIR_DEFAULT));
    return native && H5Tequal(stored.get(), native.get()) > 0;
}

} // namespace Ovard::gridio
