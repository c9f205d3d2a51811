// SPDX-License-Identifier: BSD-3-Clause
// How the library stores an open file.
#pragma once

#include <netcdf.h>

namespace Ovard::gridio {

// NC_FORMATX_NC3 (all classic formats), NC_FORMATX_NC_HDF5 and so on (nc_inq_format_extended);
// NC_FORMATX_UNDEFINED for an invalid identifier.
inline int storageModel(int ncid)
{
    int model = NC_FORMATX_UNDEFINED;
    static_cast<void>(nc_inq_format_extended(ncid, &model, nullptr)); // left unset when it fails
    return model;
}

// Some faults of the library affect only HDF5 files (guards/).
inline bool isStoredInHdf5(int ncid) { return storageModel(ncid) == NC_FORMATX_NC_HDF5; }

// Whether nc_create with this mode creates a netCDF-4 file, taking the default format into account.
bool createsNetcdf4(int mode);

// The identifier of the file that a group belongs to; that of a file is unchanged. The lower half
// of an identifier is the number of the group.
inline int fileIdOf(int ncid) { return static_cast<int>(static_cast<unsigned>(ncid) & ~0xFFFFU); }

} // namespace Ovard::gridio
