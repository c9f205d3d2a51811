// SPDX-License-Identifier: BSD-3-Clause
#include "open_file_registry.h"

#include "error_identifiers.h"

#include <netcdf.h>

#include <unistd.h>

#include <algorithm>
#include <map>
#include <set>

namespace Ovard::gridio {
namespace {

std::map<int, pid_t> openFiles; // with the process that opened each
std::set<int> givenUpFiles;     // by fileOf

// The part of an identifier that tells the file; the rest tells the group.
int fileOf(int ncid) { return ncid >> 16; }

} // namespace

void registerOpenFile(int ncid)
{
    try {
        openFiles.emplace(ncid, getpid());
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

// A process that was forked from the one that opened the files has copies of them, of the state at
// that moment: closing a copy would write old headers and records over newer ones.
void closeRegisteredFiles()
{
    const pid_t here = getpid();
    const auto isOfHere = [here](const auto& file) { return file.second == here; };
    if (std::none_of(openFiles.begin(), openFiles.end(), isOfHere))
        return;

    vxWarningMsgId(netcdf::closingFileHandle());
    for (const auto& file : openFiles) {
        if (isOfHere(file))
            static_cast<void>(nc_close(file.first)); // there is nothing left to report to
    }
}

} // namespace Ovard::gridio
