// SPDX-License-Identifier: BSD-3-Clause
#include "open_file_registry.h"

#include "error_identifiers.h"

#include <netcdf.h>

#include <set>

namespace Ovard::gridio {
namespace {

std::set<int> openFiles;

} // namespace

void registerOpenFile(int ncid)
{
    try {
        openFiles.insert(ncid);
    } catch (...) {
        static_cast<void>(
            nc_close(ncid)); // the caller is told that there is no memory; nothing to add
        throw;
    }
}

void unregisterOpenFile(int ncid) { openFiles.erase(ncid); }

bool isRegisteredFile(int ncid) { return openFiles.count(ncid) != 0; }

void closeRegisteredFiles()
{
    if (openFiles.empty())
        return;

    vxWarningMsgId(netcdf::closingFileHandle());
    for (const int ncid : openFiles)
        static_cast<void>(
            nc_close(ncid)); // nobody is left to be told; the other files must still be closed
}

} // namespace Ovard::gridio
