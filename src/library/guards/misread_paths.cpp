// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/misread_paths.h"

#include "library/storage_model.h"

#include <fcntl.h>
#include <unistd.h>

#include <cctype>
#include <cerrno>
#include <cstring>

namespace Ovard::gridio {
namespace {

bool isLetter(char c) { return std::isalpha(static_cast<unsigned char>(c)) != 0; }

// The library skips characters up to and including the blank.
bool isSkipped(char c) { return static_cast<unsigned char>(c) <= ' '; }

// A relative path with a beginning that the library interprets: blanks to skip, the root folder of
// a share, a drive.
bool isMisunderstood(const std::string& path)
{
    const char first = path.empty() ? '/' : path[0];
    return isSkipped(first) || first == '\\' ||
           (path.size() > 1 && isLetter(first) && path[1] == ':');
}

// A file of the classic formats, which the library opens by the unchanged path.
bool isClassic(int descriptor)
{
    char magic[3] = {};
    return pread(descriptor, magic, sizeof magic, 0) == sizeof magic &&
           std::memcmp(magic, "CDF", sizeof magic) == 0;
}

} // namespace

bool isAddress(const std::string& path)
{
    std::size_t begin = 0;
    while (begin < path.size() && (isSkipped(path[begin]) || path[begin] == '[')) {
        if (path[begin] == '[') {
            begin = path.find(']', begin);
            if (begin == std::string::npos)
                return false;
        }
        ++begin;
    }
    std::size_t end = begin;
    while (end < path.size() &&
           (isLetter(path[end]) ||
            (end > begin && std::isdigit(static_cast<unsigned char>(path[end])) != 0)))
        ++end;
    return end > begin && path.compare(end, 3, "://") == 0;
}

LibraryPath::LibraryPath(const std::string& path, Purpose purpose, int& mode) : path_(path)
{
    if (isAddress(path))
        return;
    if (isMisunderstood(path))
        path_ = "./" + path;
    const bool isOnDisk = (mode & (NC_DISKLESS | NC_INMEMORY)) == 0 || (mode & NC_PERSIST) != 0;
    if (path.find('\\') == std::string::npos)
        return;
    if (purpose == Purpose::opening) {
        openDescriptor(path_, O_RDONLY);
        if (descriptor_ >= 0 && isClassic(descriptor_))
            return;
    } else if (isOnDisk && createsNetcdf4(mode)) {
        const int exclusive = (mode & NC_NOCLOBBER) != 0 ? O_EXCL : 0;
        openDescriptor(path_, O_RDWR | O_CREAT | exclusive);
        mode &= ~NC_NOCLOBBER;
    }
    if (descriptor_ >= 0)
        path_ = "/proc/self/fd/" + std::to_string(descriptor_);
}

LibraryPath::~LibraryPath()
{
    if (descriptor_ >= 0)
        static_cast<void>(::close(descriptor_)); // the library has its own
}

void LibraryPath::openDescriptor(const std::string& path, int flags)
{
    descriptor_ = ::open(path.c_str(), flags | O_CLOEXEC | O_NONBLOCK, 0666);
    if (descriptor_ < 0)
        status_ = errno == EEXIST ? NC_EEXIST : errno;
}

} // namespace Ovard::gridio
