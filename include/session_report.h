// SPDX-License-Identifier: BSD-3-Clause
// The files that a session has open, the features of the library, and the number of threads, for
// hosts that report them to their users; no operation needs this.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace Ovard::gridio {

struct OpenFile {
    int ncid;
    std::string path; // as the library reports it (nc_inq_path)
    bool isWritable;
    std::string format; // "classic", "64-bit offset", "CDF-5", "netCDF-4", "DAP2", "Zarr", ...
    bool isClosedAtUnload;
};

// Every file that the library has open, by identifier, except abandoned files and those that the
// library opened for its own use. May throw std::bad_alloc.
std::vector<OpenFile> listOpenFiles();

struct LibraryReport {
    std::string netcdf;          // version in use
    std::string netcdfBuiltWith; // version that the module was compiled with
    std::string hdf5;            // version in use; "none" if the library was built without it
    std::vector<std::pair<std::string, bool>> features; // "dap2", "zarr", ...: available or not
    std::vector<std::pair<std::string, bool>> filters;  // "deflate", "zstd", ...: available or not

    // Paths: the library that the module uses, and others of the process, which keep files of their
    // own.
    std::vector<std::string> hdf5Libraries;
};

LibraryReport describeLibrary();

// How many threads one read or write may use, the calling one included: as many as the machine runs
// at once, at most 16, unless the environment variable GRIDIO_THREADS says otherwise.
std::size_t threadCount();

} // namespace Ovard::gridio
