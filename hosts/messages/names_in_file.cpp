// SPDX-License-Identifier: BSD-3-Clause
// The names that subjects.h declares: of objects in a file, and of types.
#include "hosts/messages/name_buffer.h"
#include "hosts/messages/subjects.h"
#include "hosts/messages/visible_text.h"

#include <algorithm>

namespace hosts::messages {

namespace {

// Each name takes a library call: enough to find a misspelt one without a noticeable delay.
constexpr int mostNames = 2000;
constexpr std::size_t mostGroups = 500;

// The identifiers that a call such as nc_inq_varids lists.
template <class Inquire> std::vector<int> identifiers(const Inquire& inquire)
{
    int count = 0;
    if (inquire(&count, nullptr) != NC_NOERR || count <= 0)
        return {};
    std::vector<int> ids(static_cast<std::size_t>(count));
    if (inquire(&count, ids.data()) != NC_NOERR)
        return {};
    ids.resize(static_cast<std::size_t>(std::min(count, mostNames)));
    return ids;
}

// The names of the identifiers that have one.
template <class Inquire>
std::vector<std::string> namesOf(const std::vector<int>& ids, const Inquire& inquire)
{
    std::vector<std::string> names;
    for (const int id : ids)
        if (nameBuffer() != nullptr && inquire(id, nameBuffer()) == NC_NOERR)
            names.push_back(bufferedName());
    return names;
}

std::vector<int> groupsIn(int ncid)
{
    return identifiers([=](int* count, int* ids) { return nc_inq_grps(ncid, count, ids); });
}

} // namespace

std::vector<std::string> variableNames(int ncid)
{
    if (!isOpen(ncid))
        return {};
    return namesOf(
        identifiers([=](int* count, int* ids) { return nc_inq_varids(ncid, count, ids); }),
        [=](int id, char* name) { return nc_inq_varname(ncid, id, name); });
}

std::vector<std::string> dimensionNames(int ncid)
{
    if (!isOpen(ncid))
        return {};
    constexpr int withParents = 1;
    return namesOf(identifiers([=](int* count, int* ids) {
                       return nc_inq_dimids(ncid, count, ids, withParents);
                   }),
                   [=](int id, char* name) { return nc_inq_dimname(ncid, id, name); });
}

std::vector<std::string> groupNames(int ncid)
{
    if (!isOpen(ncid))
        return {};
    return namesOf(groupsIn(ncid), [](int id, char* name) { return nc_inq_grpname(id, name); });
}

std::vector<std::string> attributeNames(int ncid, int varid)
{
    int count = 0;
    const int status = !isOpen(ncid)        ? NC_EBADID
                       : varid == NC_GLOBAL ? nc_inq_natts(ncid, &count)
                                            : nc_inq_varnatts(ncid, varid, &count);
    if (status != NC_NOERR)
        return {};
    std::vector<int> numbers;
    for (int i = 0; i < std::min(count, mostNames); ++i)
        numbers.push_back(i);
    return namesOf(
        numbers, [=](int number, char* name) { return nc_inq_attname(ncid, varid, number, name); });
}

std::vector<int> allGroups(int ncid)
{
    if (!isOpen(ncid))
        return {};
    int root = ncid;
    for (int parent = 0; nc_inq_grp_parent(root, &parent) == NC_NOERR;)
        root = parent;
    std::vector<int> groups{root};
    for (std::size_t i = 0; i < groups.size() && groups.size() < mostGroups; ++i)
        for (const int child : groupsIn(groups[i]))
            groups.push_back(child);
    return groups;
}

std::string groupPath(int ncid)
{
    std::size_t length = 0;
    if (!isOpen(ncid) || nc_inq_grpname_len(ncid, &length) != NC_NOERR)
        return "";
    std::string path(length + 1, '\0');
    if (nc_inq_grpname_full(ncid, nullptr, path.data()) != NC_NOERR)
        return "";
    return path.substr(0, path.find('\0'));
}

std::string typeName(int ncid, nc_type type)
{
    constexpr const char* names[] = {"NC_NAT",   "NC_BYTE",   "NC_CHAR",  "NC_SHORT",  "NC_INT",
                                     "NC_FLOAT", "NC_DOUBLE", "NC_UBYTE", "NC_USHORT", "NC_UINT",
                                     "NC_INT64", "NC_UINT64", "NC_STRING"};
    if (type >= 0 && type <= NC_STRING)
        return names[type];

    int kind = 0;
    if (!isOpen(ncid) || nameBuffer() == nullptr ||
        nc_inq_user_type(ncid, type, nameBuffer(), nullptr, nullptr, nullptr, &kind) != NC_NOERR)
        return "number " + std::to_string(type);
    const char* word = kind == NC_ENUM       ? "enum"
                       : kind == NC_VLEN     ? "variable-length"
                       : kind == NC_COMPOUND ? "compound"
                       : kind == NC_OPAQUE   ? "opaque"
                                             : "user-defined";
    return std::string("the ") + word + " type " + inQuotes(bufferedName());
}

std::string describeType(int ncid, nc_type type)
{
    const std::string name = typeName(ncid, type);
    return name.rfind("the ", 0) == 0 ? name : "type " + name;
}

const char* operationSuffix(nc_type type)
{
    constexpr const char* suffixes[] = {nullptr,  "Schar", "Text",   "Short", "Int",   "Float",
                                        "Double", "Uchar", "Ushort", "Uint",  "Int64", "Uint64"};
    return type >= NC_BYTE && type <= NC_UINT64 ? suffixes[type] : nullptr;
}

} // namespace hosts::messages
