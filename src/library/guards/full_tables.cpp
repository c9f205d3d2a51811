// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/full_tables.h"

#include "library/guards/torn_down_files.h"
#include "library/storage_model.h"

#include <cstddef>

namespace Ovard::gridio {

bool overflowsFileTable(int mode)
{
    if (!createsNetcdf4(mode))
        return false;
    // The library assigns the lowest free number, so a free one is found at once unless the table
    // is nearly full. The upper half of an identifier is the file's number, from 1.
    for (unsigned number = 0xFFFF; number > 0; --number) {
        const int ncid = static_cast<int>(number << 16);
        std::size_t length = 0;
        if (!isAbandonedFile(ncid) && nc_inq_path(ncid, &length, nullptr) != NC_NOERR)
            return false;
    }
    return true;
}

} // namespace Ovard::gridio
