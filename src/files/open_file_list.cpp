// SPDX-License-Identifier: BSD-3-Clause
// The files that the library has open.
#include "session_report.h"

#include "library/guards/torn_down_files.h"
#include "library/storage_model.h"
#include "open_file_registry.h"

#include <netcdf.h>

namespace Ovard::gridio {
namespace {

constexpr int largestFileNumber = 0xFFFF; // the upper half of an identifier

// Renaming an attribute of a variable that cannot exist always fails, but with NC_EPERM first if
// the file is read-only. The library has no inquiry for this.
bool isWritable(int ncid, int model)
{
    if (model == NC_FORMATX_DAP2 || model == NC_FORMATX_DAP4)
        return false;
    constexpr int noVariable = NC_GLOBAL - 1;
    return nc_rename_att(ncid, noVariable, "a", "b") != NC_EPERM;
}

const char* formatName(int ncid, int model)
{
    switch (model) {
    case NC_FORMATX_DAP2:
        return "DAP2";
    case NC_FORMATX_DAP4:
        return "DAP4";
    case NC_FORMATX_NCZARR:
        return "Zarr";
    default:
        break;
    }
    int format = 0;
    if (nc_inq_format(ncid, &format) != NC_NOERR)
        return "unknown";
    switch (format) {
    case NC_FORMAT_CLASSIC:
        return "classic";
    case NC_FORMAT_64BIT_OFFSET:
        return "64-bit offset";
    case NC_FORMAT_64BIT_DATA:
        return "CDF-5";
    case NC_FORMAT_NETCDF4:
        return "netCDF-4";
    case NC_FORMAT_NETCDF4_CLASSIC:
        return "netCDF-4 classic model";
    default:
        return "unknown";
    }
}

// The memory in which the library keeps remote data has an identifier that no script has seen.
bool belongsToTheLibrary(const std::string& path, int ncid, int mode)
{
    return (mode & NC_DISKLESS) != 0 && path.compare(0, 4, "tmp_") == 0 && !isRegisteredFile(ncid);
}

bool findPath(int ncid, std::string& path)
{
    std::size_t length = 0;
    if (isAbandonedFile(ncid) || nc_inq_path(ncid, &length, nullptr) != NC_NOERR)
        return false;
    path.assign(length + 1, '\0');
    if (nc_inq_path(ncid, nullptr, path.data()) != NC_NOERR)
        return false;
    path.pop_back();
    return true;
}

} // namespace

std::vector<OpenFile> listOpenFiles()
{
    std::vector<OpenFile> files;
    for (int number = 1; number <= largestFileNumber; ++number) {
        const int ncid = static_cast<int>(static_cast<unsigned>(number) << 16);
        std::string path;
        int model = 0;
        int mode = 0;
        if (findPath(ncid, path) && nc_inq_format_extended(ncid, &model, &mode) == NC_NOERR &&
            !belongsToTheLibrary(path, ncid, mode))
            files.push_back({ncid, path, isWritable(ncid, model), formatName(ncid, model),
                             isRegisteredFile(ncid)});
    }
    return files;
}

} // namespace Ovard::gridio
