// SPDX-License-Identifier: BSD-3-Clause
// The features of the library in use.
#include "session_report.h"

#include "library/mapped_objects.h"

#include <netcdf.h>
#include <netcdf_filter.h>
#include <netcdf_meta.h>

#include <hdf5.h>

#include <utility>

namespace Ovard::gridio {
namespace {

struct Filter {
    const char* name;
    unsigned id; // as registered with the HDF Group
};

constexpr Filter filters[] = {
    {"deflate", 1}, {"shuffle", 2},   {"fletcher32", 3}, {"szip", 4},
    {"bzip2", 307}, {"blosc", 32001}, {"zstd", 32015},
};

std::string hdf5Version()
{
    unsigned major = 0;
    unsigned minor = 0;
    unsigned release = 0;
    if (H5get_libversion(&major, &minor, &release) < 0)
        return "none";
    return std::to_string(major) + '.' + std::to_string(minor) + '.' + std::to_string(release);
}

// Ours is that of the netCDF library: both are linked with it by name. A function of HDF5 that is
// found in another one would see none of the netCDF library's files.
std::vector<std::string> hdf5Libraries()
{
    const std::string ours = libraryAt(reinterpret_cast<const void*>(&H5open));
    std::vector<std::string> libraries = {ours};
    for (std::string& path : librariesThatDefine("H5open"))
        if (path != ours)
            libraries.push_back(std::move(path));
    return libraries;
}

} // namespace

LibraryReport describeLibrary()
{
    const std::string library = nc_inq_libvers(); // "4.9.0 of Sep  3 2022 ..."
    LibraryReport report;
    report.netcdf = library.substr(0, library.find(' '));
    report.netcdfBuiltWith = NC_VERSION;
    report.hdf5 = hdf5Version();
    report.hdf5Libraries = hdf5Libraries();
    report.features = {{"dap2", NC_HAS_DAP2 != 0},         {"dap4", NC_HAS_DAP4 != 0},
                       {"zarr", NC_HAS_NCZARR != 0},       {"cdf5", NC_HAS_CDF5 != 0},
                       {"diskless", NC_HAS_DISKLESS != 0}, {"parallel", NC_HAS_PARALLEL != 0}};
    for (const Filter& filter : filters)
        report.filters.emplace_back(filter.name,
                                    H5Zfilter_avail(static_cast<H5Z_filter_t>(filter.id)) > 0);
    return report;
}

} // namespace Ovard::gridio
