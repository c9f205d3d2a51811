// SPDX-License-Identifier: BSD-3-Clause
// Files with variables that are stored in chunks in any way that netCDF and HDF5 offer.
#pragma once

#include "tests/properties/random.h"

#include <netcdf.h>

#include <string>
#include <vector>

namespace properties {

struct Layout {
    int ncid = 0; // of its group
    int varid = 0;
    nc_type type = NC_NAT;
    Lengths lengths;
    int twin = 0; // a variable of the same values that the library can read
    std::string description;
};

struct LayoutFile {
    int ncid = 0;
    std::vector<Layout> layouts;
};

// Defined and written by the netCDF library: groups, unlimited dimensions beyond what is written,
// fill values or none, byte orders, deflate, shuffle, checksums. The file is open for writing, with
// chunks in the library's cache, or has been closed and opened.
LayoutFile makeLibraryFile(Random& random, const std::string& path, std::size_t count);

// Defined by HDF5 and written chunk by chunk: every filter in any order, skipped ones, missing
// chunks, partial chunks without filters. Open for reading.
LayoutFile makeHdf5File(Random& random, const std::string& path, std::size_t count);

} // namespace properties
