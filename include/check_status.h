// SPDX-License-Identifier: BSD-3-Clause
// Turns a status of the netCDF library into an error of the host.
#pragma once

#include "operation_entry.h"

#include <string>

namespace Ovard::gridio {

// Raises libraryFailure, or librarydapFailure for the remote-access statuses, with the row's
// operation name, the name of the status and the library's text (nc_strerror, without its leading
// "NetCDF: "). The status must not be zero.
[[noreturn]] void raiseLibraryFailure(int status, const OperationEntry* entry);

// Returns when the status is NC_NOERR and raises otherwise: called right after every library call.
inline void checkStatus(int status, const OperationEntry* entry)
{
    if (status != 0)
        raiseLibraryFailure(status, entry);
}

// "NC_EEDGE" for -57; the decimal digits for a status without a name, such as a positive system
// error number.
std::string errorCodeName(int status);

} // namespace Ovard::gridio
