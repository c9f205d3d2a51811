// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/replaced_folders.h"

#include "library/guards/misread_paths.h"

#include <netcdf.h>

#include <algorithm>
#include <filesystem>
#include <iterator>
#include <system_error>

namespace Ovard::gridio {
namespace {

// The path that the library reads from "file:///data/store#mode=zarr,file".
std::string localPath(const std::string& address)
{
    const std::string scheme = "file://";
    const std::size_t begin = address.find(scheme);
    if (!isAddress(address) || begin == std::string::npos)
        return {};
    std::string path = address.substr(begin + scheme.size());
    path = path.substr(0, path.find_first_of("?#"));
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

bool isZarrStore(const std::filesystem::path& folder)
{
    const char* const keys[] = {".zgroup", ".zarray", ".zmetadata", ".nczarr", "zarr.json"};
    return std::any_of(std::begin(keys), std::end(keys), [&](const char* key) {
        std::error_code failure;
        return std::filesystem::exists(folder / key, failure);
    });
}

} // namespace

bool harmsFolder(const std::string& address, int mode)
{
    const std::filesystem::path folder = localPath(address);
    std::error_code failure;
    const std::filesystem::directory_iterator entries(folder, failure);
    const bool holdsSomething = !failure && entries != std::filesystem::directory_iterator();
    return holdsSomething && ((mode & NC_NOCLOBBER) != 0 || !isZarrStore(folder));
}

} // namespace Ovard::gridio
