// SPDX-License-Identifier: BSD-3-Clause
#include "open_file_registry.h"

#include "error_identifiers.h"

#include <netcdf.h>

#include <set>

namespace Ovard::gridio {
namespace {

std::set<int> openFiles;
std::set<int> givenUpFiles; // by fileOf

// The part of an identifier that tells the file; the rest tells the group.
int fileOf(int ncid) { return ncid >> 16; }

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

void giveUpFile(int ncid)
{
    givenUpFiles.insert(fileOf(ncid));
    openFiles.erase(ncid);
}

bool isGivenUpFile(int ncid)
{
    return !givenUpFiles.empty() && givenUpFiles.count(fileOf(ncid)) != 0;
}

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
