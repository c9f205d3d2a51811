// SPDX-License-Identifier: BSD-3-Clause
#include "open_file_registry.h"

#include "error_identifiers.h"
#include "library/guards/forked_files.h"

#include <netcdf.h>

#include <algorithm>
#include <map>

namespace Ovard::gridio {
namespace {

std::map<int, OpeningProcess> openFiles;

} // namespace

void registerOpenFile(int ncid)
{
    try {
        openFiles.emplace(ncid, OpeningProcess());
    } catch (...) {
        static_cast<void>(nc_close(ncid)); // std::bad_alloc follows
        throw;
    }
}

void unregisterOpenFile(int ncid) { openFiles.erase(ncid); }

bool isRegisteredFile(int ncid) { return openFiles.count(ncid) != 0; }

void closeRegisteredFiles()
{
    const auto isOfThisProcess = [](const auto& file) { return file.second.isThis(); };
    if (std::none_of(openFiles.begin(), openFiles.end(), isOfThisProcess))
        return;

    vxWarningMsgId(netcdf::closingFileHandle());
    for (const auto& file : openFiles) {
        if (isOfThisProcess(file))
            static_cast<void>(nc_close(file.first)); // there is nothing left to report to
    }
}

} // namespace Ovard::gridio
