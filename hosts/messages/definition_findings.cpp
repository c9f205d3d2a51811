// SPDX-License-Identifier: BSD-3-Clause
// Findings about definitions: unlimited dimensions, formats, chunk sizes, invalid numbers.
#include "hosts/messages/findings.h"
#include "hosts/messages/index_advice.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include <algorithm>

namespace hosts::messages {

namespace {

// The dimensions of defVar's list, in the interpreter's order.
std::vector<Dimension> listedDimensions(const FailedCall& call, int ncid)
{
    std::vector<Dimension> dimensions;
    for (const double dimid : call.numbers("dimids"))
        if (dimid >= 0 && dimid < 1e9)
            if (const auto dimension = dimensionOf(ncid, static_cast<int>(dimid)))
                dimensions.push_back(*dimension);
    return dimensions;
}

std::string findBadLevel(const FailedCall& call)
{
    const std::optional<double> level = call.number("level");
    if (!level || (*level >= 0 && *level <= 9))
        return "";
    return "The deflate level is " + numberText(*level) +
           ": it goes from 0 (none) to 9 (smallest).";
}

std::string findUnchunkable(const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    if (!variable)
        return "";
    const std::string what = "The variable " + inQuotes(variable->name);
    if (variable->dimensions.empty())
        return what + " has no dimensions, so that it cannot be chunked, compressed or checked.";
    const auto unlimited = std::find_if(variable->dimensions.begin(), variable->dimensions.end(),
                                        [](const Dimension& d) { return d.isUnlimited; });
    if (call.number("storage") == 1 && unlimited != variable->dimensions.end())
        return what + " has the unlimited dimension " + inQuotes(unlimited->name) +
               ", so that it cannot be contiguous.";
    return call.number("storage") == 1
               ? what + " is compressed or has a checksum, so that it cannot be contiguous."
               : "";
}

} // namespace

std::string findUnlimitedPosition(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    if (!ncid)
        return "";
    const std::vector<Dimension> dimensions = listedDimensions(call, *ncid);
    for (std::size_t i = 0; i + 1 < dimensions.size(); ++i) {
        if (!dimensions[i].isUnlimited)
            continue;
        std::vector<Dimension> sorted = dimensions;
        sorted.push_back(sorted[i]);
        sorted.erase(sorted.begin() + static_cast<std::ptrdiff_t>(i));
        return "The unlimited dimension " + inQuotes(dimensions[i].name) + " stands " +
               ordinal(i + 1) + " of " + std::to_string(dimensions.size()) + " in (" +
               dimensionList(dimensions, false) + "); put it last: (" +
               dimensionList(sorted, false) + ").";
    }
    return "";
}

std::string findOtherUnlimited(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    int unlimited = -1;
    if (!ncid || !isOpen(*ncid) || nc_inq_unlimdim(*ncid, &unlimited) != NC_NOERR)
        return "";
    const std::optional<Dimension> dimension = dimensionOf(*ncid, unlimited);
    return dimension
               ? "The file already has the unlimited dimension " + inQuotes(dimension->name) + "."
               : "";
}

std::string findUnfitFormat(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::string format = ncid ? formatOf(*ncid) : "";
    return format.empty() ? "" : "The format of the file is " + format + ".";
}

std::string findBadChunkSize(const FailedCall& call)
{
    const std::optional<Variable> variable = variableOfCall(call);
    const std::vector<double> sizes = call.numbers("sizes");
    if (!variable || sizes.size() != variable->dimensions.size())
        return "";
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const Dimension& dimension = variable->dimensions[i];
        if (!dimension.isUnlimited && sizes[i] > static_cast<double>(dimension.length))
            return "The chunk size " + numberText(sizes[i]) + " is larger than " +
                   describePlace(*variable, i) + ".";
        if (sizes[i] < 0)
            return "The chunk size " + numberText(sizes[i]) + " for " +
                   describePlace(*variable, i) + " is negative.";
    }
    return "";
}

std::string findInvalidArgument(const FailedCall& call)
{
    if (call.operation() == "defVarDeflate") {
        const std::string badLevel = findBadLevel(call);
        return badLevel.empty() ? findUnchunkable(call) : badLevel;
    }
    if (call.operation() == "defVarChunking" || call.operation() == "defVarFletcher32")
        return findUnchunkable(call);
    if (call.operation() == "setFill")
        return "The fill mode " + numberText(call.number("new_fill_mode").value_or(0)) +
               " is neither NC_FILL (0) nor NC_NOFILL (256).";
    if (call.operation() == "setDefaultFormat")
        return "The format " + numberText(call.number("format").value_or(0)) +
               " is not one of NC_FORMAT_CLASSIC (1), NC_FORMAT_64BIT (2), NC_FORMAT_NETCDF4 (3) and "
               "NC_FORMAT_NETCDF4_CLASSIC (4).";
    if (call.operation() == "pEndDef")
        return "An alignment (v_align, r_align) must be 1 or more.";
    return "";
}

} // namespace hosts::messages
