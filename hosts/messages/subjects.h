// SPDX-License-Identifier: BSD-3-Clause
// The subjects of a failed call, inquired from the netCDF library: the open file, the variable, its
// dimensions. Nothing here fails: unknown parts are left out. An abandoned file (abandoned_files.h)
// is never inquired.
#pragma once

#include <netcdf.h>

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace hosts::messages {

// Whether the identifier is that of an open file or group that may be inquired.
bool isOpen(int ncid);

// As it was opened; empty if unknown.
std::string pathOf(int ncid);

// The same, resolved if it is relative and still leads to the open file.
std::string resolvedPathOf(int ncid);

// "classic", "netCDF-4", ...
std::string formatOf(int ncid);
bool isNetcdf4(int ncid);

// Whether it is stored in HDF5, unlike Zarr and remote data sets, which count as netCDF-4 too.
bool isHdf5(int ncid);

// False for a file that was opened without "write".
bool isWritable(int ncid);

struct Dimension {
    int id = -1;
    std::string name;
    std::size_t length = 0;
    bool isUnlimited = false;
};

std::optional<Dimension> dimensionOf(int ncid, int dimid);

struct Variable {
    std::string name;
    nc_type type = NC_NAT;
    std::vector<Dimension> dimensions; // in the interpreter's order, fastest first
    bool hasAllDimensions = true;      // false when some could not be inquired
};

std::optional<Variable> variableOf(int ncid, int varid);

// 'variable "t" (lon 4, lat 3, time 12)'.
std::string describeVariable(const Variable& variable);

// 'lon, lat, time', each with its length on request.
std::string dimensionList(const std::vector<Dimension>& dimensions, bool withLengths);

// 'File "field.nc" (classic), group "/model", variable "t" (lon 4, lat 3).' Without the variable if
// there is none of that number; empty if the file is not open.
std::string subjectLine(int ncid, std::optional<int> varid);

// Names of the objects in a file or group itself, in the order of identifiers; if there are very
// many, the first of them.
std::vector<std::string> variableNames(int ncid);
std::vector<std::string> dimensionNames(int ncid); // also those of the parent groups
std::vector<std::string> groupNames(int ncid);
std::vector<std::string> attributeNames(int ncid, int varid);

// Identifiers of all groups of the file, the root first; if there are very many, the first of them.
std::vector<int> allGroups(int ncid);
std::string groupPath(int ncid);

// "NC_DOUBLE" for the library's own types, 'the enum type "cloud_t"' for a user's.
std::string typeName(int ncid, nc_type type);

// 'type NC_DOUBLE', 'the enum type "cloud_t"'.
std::string describeType(int ncid, nc_type type);

// "Double" for NC_DOUBLE: the ending of the operations for it; null for a type that they cannot
// read.
const char* operationSuffix(nc_type type);

} // namespace hosts::messages
