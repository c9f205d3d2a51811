// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/emptied_files.h"

#include "library/storage_model.h"

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>

namespace Ovard::gridio {
namespace {

// HDF5 locks files unless its environment variable disables it.
bool areFilesLocked()
{
    const char* setting = std::getenv("HDF5_USE_FILE_LOCKING");
    return setting == nullptr || std::strcmp(setting, "FALSE") != 0;
}

// Tries the lock that HDF5 takes for writing, and releases it at once.
bool isLocked(const std::string& path)
{
    const int descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (descriptor < 0)
        return false;
    const bool isRefused = flock(descriptor, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
    static_cast<void>(::close(descriptor)); // which also releases the lock
    return isRefused;
}

} // namespace

bool emptiesLockedFile(const std::string& path, int mode)
{
    return (mode & (NC_NOCLOBBER | NC_DISKLESS)) == 0 && createsNetcdf4(mode) && areFilesLocked() &&
           isLocked(path);
}

} // namespace Ovard::gridio
