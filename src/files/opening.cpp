// SPDX-License-Identifier: BSD-3-Clause
#include "files/opening.h"

#include "library/guards/blocking_files.h"
#include "library/guards/endless_addresses.h"
#include "library/guards/files_in_memory.h"
#include "library/guards/misread_paths.h"
#include "library/hdf5_file.h"

#include <netcdf.h>

namespace Ovard::gridio {

int refusalToOpen(const std::string& file, int mode)
{
    if (const int refusal = refusalOfMissingMemory(mode); refusal != NC_NOERR)
        return refusal;
    if (isEndlessAddress(file))
        return NC_EINVAL;
    return isPipeOrDevice(file) ? NC_ENOTNC : NC_NOERR;
}

int openFile(const std::string& file, int mode, int& ncid)
{
    if (const int refusal = refusalToOpen(file, mode))
        return refusal;
    const LibraryPath path(file, LibraryPath::Purpose::opening, mode);
    if (path.status() != NC_NOERR)
        return path.status();
    const int status = nc_open(path.c_str(), mode, &ncid);
    if (status == NC_NOERR)
        noteOpenedFile(ncid);
    return status;
}

ScopedFile::ScopedFile(const std::string& file) : status_(openFile(file, NC_NOWRITE, ncid_)) {}

// Nothing was written, so that a failure loses nothing.
ScopedFile::~ScopedFile()
{
    if (status_ != NC_NOERR)
        return;
    static_cast<void>(nc_close(ncid_));
    forgetFile(ncid_);
}

} // namespace Ovard::gridio
