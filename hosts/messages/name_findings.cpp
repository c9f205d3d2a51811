// SPDX-License-Identifier: BSD-3-Clause
// Findings about names and identifiers inside a file.
#include "hosts/messages/findings.h"
#include "hosts/messages/near_names.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include "abandoned_files.h"

#include <algorithm>
#include <functional>

namespace hosts::messages {

namespace {

constexpr std::size_t mostListed = 10;

std::string nearOrAll(const std::string& name, const std::vector<std::string>& names,
                      const std::string& plural)
{
    const std::vector<std::string> near = nearNames(name, names);
    if (!near.empty())
        return " Did you mean " + quotedNames(near, near.size(), "or") + "?";
    if (names.empty())
        return " It has no " + plural + ".";
    return " Its " + plural + " are " + quotedNames(names, mostListed, "and") + ".";
}

std::string describeGroup(int ncid)
{
    const std::string path = groupPath(ncid);
    return path.size() > 1 ? "the group " + inQuotes(path) : "the file";
}

// ' The group "/g" (ncid 65537) has one of that name.' for the first that has.
std::string findInOtherGroup(int ncid, const std::function<bool(int group)>& holdsIt)
{
    for (const int group : allGroups(ncid))
        if (group != ncid && holdsIt(group)) {
            const std::string path = groupPath(group);
            return (path.size() > 1 ? " The group " + inQuotes(path)
                                    : std::string(" The root group")) +
                   " (" + std::to_string(group) + ") has one of that name.";
        }
    return "";
}

std::string describeOwner(int ncid, int varid)
{
    if (const std::optional<Variable> variable = variableOf(ncid, varid))
        return "The variable " + inQuotes(variable->name);
    return groupPath(ncid).size() > 1 ? "The group itself (NC_GLOBAL, -1)"
                                      : "The file itself (NC_GLOBAL, -1)";
}

// 'The variable "t" (2)' for the first that has the attribute.
std::string findOtherOwner(int ncid, int varid, const std::string& attribute)
{
    constexpr int mostVariables = 200;
    int count = 0;
    static_cast<void>(nc_inq_nvars(ncid, &count)); // none then
    for (int other = NC_GLOBAL; other < std::min(count, mostVariables); ++other)
        if (other != varid && nc_inq_attid(ncid, other, attribute.c_str(), nullptr) == NC_NOERR)
            return describeOwner(ncid, other) +
                   (other == NC_GLOBAL ? "" : " (" + std::to_string(other) + ")");
    return "";
}

// 'Its identifiers go from 0 to 2, in the order "lon", "lat", "time".'
std::string describeIdentifiers(const std::vector<std::string>& names, const std::string& plural)
{
    if (names.empty())
        return " It has no " + plural + ".";
    if (names.size() == 1)
        return " It has one, " + inQuotes(names.front()) + ", with the identifier 0.";
    return " It has " + counted(names.size(), plural.substr(0, plural.size() - 1)) +
           ", with identifiers from 0 to " + std::to_string(names.size() - 1) + ": " +
           quotedNames(names, mostListed, "and") + ".";
}

// An identifier one beyond the last was probably counted from 1.
std::string findMissingIdentifier(const std::string& what, double id,
                                  const std::vector<std::string>& names, int ncid)
{
    return "There is no " + what + " with the identifier " + numberText(id) + " in " +
           describeGroup(ncid) + "." + describeIdentifiers(names, what + "s");
}

bool isAmong(const std::vector<std::string>& names, const std::string& name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

// The new name that the call gives; of two names, the second.
std::optional<std::string> newName(const FailedCall& call)
{
    return call.has("new_name") ? call.text("new_name") : call.text("name");
}

} // namespace

std::string findMissingVariable(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    if (!ncid || !isOpen(*ncid))
        return "";
    const std::optional<int> out = call.identifier("varid_out");
    const std::optional<int> ncidOut = call.identifier("ncid_out");
    const std::optional<int> varid = call.identifier("varid");
    if (varid && variableOf(*ncid, *varid) && out && ncidOut && isOpen(*ncidOut))
        return findMissingIdentifier("variable", *out, variableNames(*ncidOut), *ncidOut);
    if (varid)
        return findMissingIdentifier("variable", *varid, variableNames(*ncid), *ncid) +
               (*varid == NC_GLOBAL ? " (-1 is NC_GLOBAL, which stands for the file itself.)" : "");

    const std::optional<std::string> name = call.text("name");
    if (!name)
        return "";
    const std::string elsewhere = findInOtherGroup(*ncid, [&](int group) {
        int found = 0;
        return nc_inq_varid(group, name->c_str(), &found) == NC_NOERR;
    });
    int dimid = 0;
    const bool isDimension = nc_inq_dimid(*ncid, name->c_str(), &dimid) == NC_NOERR;
    return "There is no variable " + inQuotes(*name) + " in " + describeGroup(*ncid) +
           (isDimension ? ", only a dimension of that name." : ".") +
           (elsewhere.empty() ? nearOrAll(*name, variableNames(*ncid), "variables") : elsewhere);
}

std::string findMissingDimension(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    if (!ncid || !isOpen(*ncid))
        return "";
    const std::vector<std::string> names = dimensionNames(*ncid);
    if (const std::optional<int> dimid = call.identifier("dimid"))
        return dimensionOf(*ncid, *dimid)
                   ? ""
                   : findMissingIdentifier("dimension", *dimid, names, *ncid);
    for (const double dimid : call.numbers("dimids"))
        if (!(dimid >= 0 && dimid < 1e9) || !dimensionOf(*ncid, static_cast<int>(dimid)))
            return findMissingIdentifier("dimension", dimid, names, *ncid) +
                   " The list holds what \"defDim\" or \"inqDimID\" returned, not lengths.";

    const std::optional<std::string> name = call.text("name");
    if (!name || call.has("varid"))
        return "";
    const std::string elsewhere =
        findInOtherGroup(*ncid, [&](int group) { return isAmong(dimensionNames(group), *name); });
    return "There is no dimension " + inQuotes(*name) + " in " + describeGroup(*ncid) + "." +
           (elsewhere.empty() ? nearOrAll(*name, names, "dimensions") : elsewhere);
}

std::string findMissingAttribute(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<int> varid = call.identifier("varid");
    if (!ncid || !varid || !isOpen(*ncid))
        return "";
    const std::vector<std::string> names = attributeNames(*ncid, *varid);
    const std::string owner = describeOwner(*ncid, *varid);
    if (const std::optional<double> number = call.number("attnum"))
        return owner + " has no attribute of the number " + numberText(*number) + ": it has " +
               counted(names.size(), "attribute") + ", and they count from 0.";

    const std::optional<std::string> name = call.text("name");
    if (!name)
        return "";
    const std::string missing = owner + " has no attribute " + inQuotes(*name) + ".";
    if (nearNames(*name, names).empty()) {
        const std::string elsewhere = findOtherOwner(*ncid, *varid, *name);
        if (!elsewhere.empty())
            return missing + " " + elsewhere + " has one of that name.";
    }
    return missing + nearOrAll(*name, names, "attributes");
}

std::string findMissingGroup(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<std::string> name = call.text("name");
    if (!ncid || !isOpen(*ncid))
        return "";
    if (!name)
        return call.operation() == "inqGrpParent" && groupPath(*ncid) == "/"
                   ? "This is the root group, which has no parent."
                   : "";
    const std::string missing =
        "There is no group " + inQuotes(*name) + " in " + describeGroup(*ncid) + ".";
    if (name->find('/') != std::string::npos)
        return missing +
               " Groups are found one step at a time, each by its own name without \"/\".";
    return missing + nearOrAll(*name, groupNames(*ncid), "groups");
}

std::string findClosedFile(const FailedCall& call)
{
    for (const char* parameter : {"ncid", "ncid_out"}) {
        const std::optional<int> ncid = call.identifier(parameter);
        if (ncid && !isOpen(*ncid))
            return std::string(parameter) + " is " + std::to_string(*ncid) +
                   ", which is not the identifier of an open file or group: " +
                   (Ovard::gridio::isAbandonedFile(*ncid)
                        ? "the file was abandoned when it could not be closed."
                        : "it was closed, or never opened.") +
                   " gridio_open_files() lists those that are open.";
    }
    return "";
}

std::string findNameInUse(const FailedCall& call)
{
    const std::optional<int> ncid = call.identifier("ncid");
    const std::optional<std::string> name = newName(call);
    if (!ncid || !name || !isOpen(*ncid))
        return "";
    const bool isAboutAttribute = call.operation().find("Att") != std::string::npos;
    const std::string where = " in " + describeGroup(*ncid) + ".";
    if (isAboutAttribute)
        return "There is already an attribute " + inQuotes(*name) + ".";
    int id = 0;
    if (nc_inq_varid(*ncid, name->c_str(), &id) == NC_NOERR &&
        call.operation().find("Dim") == std::string::npos)
        return "There is already a variable " + inQuotes(*name) + " (" + std::to_string(id) + ")" +
               where;
    if (isAmong(groupNames(*ncid), *name))
        return "There is already a group " + inQuotes(*name) + where;
    if (nc_inq_dimid(*ncid, name->c_str(), &id) == NC_NOERR)
        return "There is already a dimension " + inQuotes(*name) + " (" + std::to_string(id) + ")" +
               where;
    if (nc_inq_varid(*ncid, name->c_str(), &id) == NC_NOERR)
        return "There is already a variable " + inQuotes(*name) + " (" + std::to_string(id) + ")" +
               where;
    return "The name " + inQuotes(*name) + " is in use.";
}

std::string findBadName(const FailedCall& call)
{
    const std::optional<std::string> name = newName(call);
    if (!name)
        return "";
    if (name->empty())
        return "The name is empty.";
    if (name->size() > NC_MAX_NAME)
        return "The name has " + std::to_string(name->size()) + " bytes.";
    const std::string what = "The name " + inQuotes(*name);
    if (name->find('/') != std::string::npos)
        return what + " holds a slash, which separates groups.";
    if (std::any_of(name->begin(), name->end(),
                    [](char c) { return static_cast<unsigned char>(c) < 0x20 || c == 0x7F; }))
        return what + " holds a control character.";
    if (name->back() == ' ')
        return what + " ends with a blank.";
    const auto first = static_cast<unsigned char>(name->front());
    const bool isGoodStart = (first >= 'a' && first <= 'z') || (first >= 'A' && first <= 'Z') ||
                             (first >= '0' && first <= '9') || first == '_' || first >= 0x80;
    if (!isGoodStart)
        return what + " begins with " + inQuotes(name->substr(0, 1)) +
               ", not with a letter, a digit or _.";
    return what + " is not well-formed UTF-8.";
}

} // namespace hosts::messages
