// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/unloaded_library.h"

#include "library/mapped_objects.h"

#include <netcdf.h>

namespace Ovard::gridio {
namespace {

bool keepLibraryLoaded() noexcept
{
    const char* release = nc_inq_libvers();
    if (leavesItsDriverBehind(release))
        keepMapped(release);
    return true;
}

// When the module is loaded: the library registers its driver at its first use, also at one that
// fails.
[[maybe_unused]] const bool isKeptLoaded = keepLibraryLoaded();

} // namespace

bool leavesItsDriverBehind(std::string_view release)
{
    const std::string_view number = release.substr(0, release.find_first_of(" -"));
    return number == "4.9.1" || number == "4.9.2";
}

} // namespace Ovard::gridio
