// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/blocking_files.h"

#include <sys/stat.h>

namespace Ovard::gridio {

bool isPipeOrDevice(const std::string& path)
{
    struct stat found = {};
    return stat(path.c_str(), &found) == 0 && !S_ISREG(found.st_mode) && !S_ISDIR(found.st_mode);
}

} // namespace Ovard::gridio
