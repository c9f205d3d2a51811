// SPDX-License-Identifier: BSD-3-Clause
// The path of an open file. The library keeps it as it was given, so a relative path becomes wrong
// when the session changes its folder.
#include "hosts/messages/subjects.h"

#include <sys/stat.h>

#include <cstdlib>
#include <memory>
#include <vector>

namespace hosts::messages {

namespace {

// Whether one of this process's descriptors refers to that file; usually one of the first.
bool isOpenFile(const struct stat& wanted)
{
    constexpr int mostDescriptors = 1024;
    for (int descriptor = 0; descriptor < mostDescriptors; ++descriptor) {
        struct stat status = {};
        if (fstat(descriptor, &status) == 0 && status.st_dev == wanted.st_dev &&
            status.st_ino == wanted.st_ino)
            return true;
    }
    return false;
}

} // namespace

std::string pathOf(int ncid)
{
    std::size_t length = 0;
    if (!isOpen(ncid) || nc_inq_path(ncid, &length, nullptr) != NC_NOERR)
        return "";
    std::string path(length + 1, '\0');
    if (nc_inq_path(ncid, nullptr, path.data()) != NC_NOERR)
        return "";
    return path.substr(0, path.find('\0'));
}

std::string resolvedPathOf(int ncid)
{
    const std::string path = pathOf(ncid);
    struct stat status = {};
    if (path.empty() || path[0] == '/' || path.find("://") != std::string::npos ||
        stat(path.c_str(), &status) != 0 || !isOpenFile(status))
        return path;
    const std::unique_ptr<char, void (*)(void*)> real(realpath(path.c_str(), nullptr), std::free);
    return real ? real.get() : path;
}

} // namespace hosts::messages
