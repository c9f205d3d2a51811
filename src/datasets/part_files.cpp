// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/part_files.h"

#include "files/opening.h"
#include "library/hdf5_file.h"
#include "open_file_registry.h"

#include <netcdf.h>

#include <algorithm>

namespace Ovard::gridio {
namespace {

constexpr std::size_t mostOpenParts = 63;

} // namespace

PartFiles& PartFiles::instance()
{
    static PartFiles files;
    return files;
}

// A script may have closed the file: scripts see it among those that are open.
int PartFiles::open(double owner, const std::string& path, int& ncid)
{
    const auto found = std::find_if(parts_.begin(), parts_.end(), [&](const OpenPart& part) {
        return part.owner == owner && part.path == path;
    });
    if (found != parts_.end() && isRegisteredFile(found->ncid)) {
        parts_.splice(parts_.begin(), parts_, found);
        ncid = found->ncid;
        return NC_NOERR;
    }
    if (found != parts_.end())
        parts_.erase(found);
    while (parts_.size() >= mostOpenParts) {
        close(parts_.back());
        parts_.pop_back();
    }
    parts_.push_front({owner, path, -1});
    const int status = openFile(path, NC_NOWRITE, parts_.front().ncid);
    if (status != NC_NOERR) {
        parts_.pop_front();
        return status;
    }
    ncid = parts_.front().ncid;
    try {
        registerOpenFile(ncid);
    } catch (...) {
        parts_.pop_front(); // closed already
        throw;
    }
    return NC_NOERR;
}

void PartFiles::closeOf(double owner)
{
    parts_.remove_if([&](const OpenPart& part) {
        if (part.owner != owner)
            return false;
        close(part);
        return true;
    });
}

// Nothing was written, so that a failure loses nothing.
void PartFiles::close(const OpenPart& part)
{
    if (!isRegisteredFile(part.ncid))
        return;
    static_cast<void>(nc_close(part.ncid));
    unregisterOpenFile(part.ncid);
    forgetFile(part.ncid);
}

} // namespace Ovard::gridio
