// SPDX-License-Identifier: BSD-3-Clause
// The five formats of files that the module creates, for tests that apply to each of them.
#pragma once

#include "data/elements/element_types.h"

#include <netcdf.h>

namespace testsupport {

struct FileFormat {
    const char* name;
    int mode;         // of "create", as a number
    int formatCode;   // of nc_inq_format
    bool hasAllTypes; // not only byte, char, short, int, float and double
    bool isNetcdf4;

    bool holds(nc_type xtype) const { return hasAllTypes || xtype <= NC_DOUBLE; }
};

constexpr FileFormat fileFormats[] = {
    {"classic", 0, NC_FORMAT_CLASSIC, false, false},
    {"64-bit offset", NC_64BIT_OFFSET, NC_FORMAT_64BIT_OFFSET, false, false},
    {"CDF-5", NC_64BIT_DATA, NC_FORMAT_CDF5, true, false},
    {"netCDF-4", NC_NETCDF4, NC_FORMAT_NETCDF4, true, true},
    {"netCDF-4 classic model", NC_NETCDF4 | NC_CLASSIC_MODEL, NC_FORMAT_NETCDF4_CLASSIC, false,
     true},
};

} // namespace testsupport
