// SPDX-License-Identifier: BSD-3-Clause
#pragma once

#include <netcdf.h>

namespace Ovard::gridio {

// How the library stores an open file: NC_FORMATX_NC3 (all classic formats), NC_FORMATX_NC_HDF5 and
// so on (nc_inq_format_extended); NC_FORMATX_UNDEFINED for an identifier that is of no file.
inline int storageModel(int ncid)
{
    int model = NC_FORMATX_UNDEFINED;
    static_cast<void>(nc_inq_format_extended(ncid, &model, nullptr)); // not told of no file
    return model;
}

// Some of what the library gets wrong, it does in such files only.
inline bool isStoredInHdf5(int ncid) { return storageModel(ncid) == NC_FORMATX_NC_HDF5; }

} // namespace Ovard::gridio
