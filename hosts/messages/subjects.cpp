// SPDX-License-Identifier: BSD-3-Clause
#include "hosts/messages/subjects.h"

#include "hosts/messages/name_buffer.h"
#include "hosts/messages/visible_text.h"

#include "abandoned_files.h"

#include <algorithm>

namespace hosts::messages {

namespace {

constexpr int mostShownDimensions = 8;

int model(int ncid)
{
    int found = NC_FORMATX_UNDEFINED;
    static_cast<void>(nc_inq_format_extended(ncid, &found, nullptr)); // stays undefined
    return found;
}

bool isUnlimited(int ncid, int dimid)
{
    // A dimension of a parent group is listed only by that group.
    for (int group = ncid;;) {
        int count = 0;
        if (nc_inq_unlimdims(group, &count, nullptr) == NC_NOERR && count > 0) {
            std::vector<int> ids(static_cast<std::size_t>(count));
            if (nc_inq_unlimdims(group, nullptr, ids.data()) == NC_NOERR &&
                std::count(ids.begin(), ids.end(), dimid) > 0)
                return true;
        }
        int parent = 0;
        if (nc_inq_grp_parent(group, &parent) != NC_NOERR)
            return false;
        group = parent;
    }
}

std::optional<Dimension> readDimension(int ncid, int dimid)
{
    Dimension dimension;
    if (nameBuffer() == nullptr ||
        nc_inq_dim(ncid, dimid, nameBuffer(), &dimension.length) != NC_NOERR)
        return std::nullopt;
    dimension.id = dimid;
    dimension.name = bufferedName();
    dimension.isUnlimited = isUnlimited(ncid, dimid);
    return dimension;
}

} // namespace

bool isOpen(int ncid)
{
    int format = 0;
    return !Ovard::gridio::isAbandonedFile(ncid) && nc_inq_format(ncid, &format) == NC_NOERR;
}

std::string formatOf(int ncid)
{
    if (!isOpen(ncid))
        return "";
    switch (model(ncid)) {
    case NC_FORMATX_DAP2:
    case NC_FORMATX_DAP4:
        return "remote";
    case NC_FORMATX_NCZARR:
        return "Zarr";
    default:
        break;
    }
    int format = 0;
    static_cast<void>(nc_inq_format(ncid, &format)); // the file is open
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
        return "";
    }
}

bool isNetcdf4(int ncid)
{
    int format = 0;
    return isOpen(ncid) && nc_inq_format(ncid, &format) == NC_NOERR &&
           (format == NC_FORMAT_NETCDF4 || format == NC_FORMAT_NETCDF4_CLASSIC);
}

bool isHdf5(int ncid) { return isOpen(ncid) && model(ncid) == NC_FORMATX_NC_HDF5; }

bool isWritable(int ncid)
{
    // The library has no inquiry for this. Renaming an attribute of a variable that cannot exist
    // always fails, but with NC_EPERM first if the file is open for reading only.
    constexpr int noVariable = NC_GLOBAL - 1;
    const int found = isOpen(ncid) ? model(ncid) : NC_FORMATX_UNDEFINED;
    return (found != NC_FORMATX_NC3 && found != NC_FORMATX_NC_HDF5) ||
           nc_rename_att(ncid, noVariable, "a", "b") != NC_EPERM;
}

std::optional<Dimension> dimensionOf(int ncid, int dimid)
{
    return isOpen(ncid) ? readDimension(ncid, dimid) : std::nullopt;
}

std::optional<Variable> variableOf(int ncid, int varid)
{
    Variable variable;
    int rank = 0;
    if (!isOpen(ncid) || varid < 0 || nameBuffer() == nullptr ||
        nc_inq_varndims(ncid, varid, &rank) != NC_NOERR || rank < 0 || rank > NC_MAX_VAR_DIMS)
        return std::nullopt;
    std::vector<int> dimids(static_cast<std::size_t>(rank));
    if (nc_inq_var(ncid, varid, nameBuffer(), &variable.type, nullptr, dimids.data(), nullptr) !=
        NC_NOERR)
        return std::nullopt;
    variable.name = bufferedName();
    std::reverse(dimids.begin(), dimids.end());
    for (const int dimid : dimids) {
        const std::optional<Dimension> dimension = readDimension(ncid, dimid);
        variable.hasAllDimensions = variable.hasAllDimensions && dimension.has_value();
        variable.dimensions.push_back(dimension.value_or(Dimension()));
    }
    return variable;
}

std::string dimensionList(const std::vector<Dimension>& dimensions, bool withLengths)
{
    std::string list;
    int shown = 0;
    for (const Dimension& dimension : dimensions) {
        if (shown++ == mostShownDimensions)
            return list + ", ...";
        list += shown == 1 ? "" : ", ";
        list += dimension.name.empty() ? "?" : visible(dimension.name.substr(0, 80));
        if (withLengths)
            list += " " + std::to_string(dimension.length);
    }
    return list;
}

std::string describeVariable(const Variable& variable)
{
    const std::string name = "variable " + inQuotes(variable.name);
    return variable.dimensions.empty()
               ? name + " (one value, no dimensions)"
               : name + " (" + dimensionList(variable.dimensions, true) + ")";
}

std::string subjectLine(int ncid, std::optional<int> varid)
{
    if (!isOpen(ncid))
        return "";
    const std::string format = formatOf(ncid);
    std::string line =
        "File " + inQuotes(resolvedPathOf(ncid)) + (format.empty() ? "" : " (" + format + ")");
    const std::string group = groupPath(ncid);
    if (group.size() > 1)
        line += ", group " + inQuotes(group);
    if (varid)
        if (const std::optional<Variable> variable = variableOf(ncid, *varid))
            line += ", " + describeVariable(*variable);
    return line + ".";
}

} // namespace hosts::messages
