// SPDX-License-Identifier: BSD-3-Clause
#include "library/type_location.h"

#include "check_status.h"
#include "library/guards/oversized_names.h"
#include "library/storage_model.h"

#include <algorithm>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

template <class Inquire> std::vector<int> listOf(const OperationEntry* entry, Inquire&& inquire)
{
    int count = 0;
    checkStatus(inquire(&count, nullptr), entry);
    std::vector<int> ids(static_cast<std::size_t>(count));
    checkStatus(inquire(nullptr, ids.data()), entry);
    return ids;
}

bool defines(int group, nc_type xtype, const OperationEntry* entry)
{
    const std::vector<int> ids =
        listOf(entry, [=](int* count, int* list) { return nc_inq_typeids(group, count, list); });
    return std::find(ids.begin(), ids.end(), xtype) != ids.end();
}

std::optional<int> parentOf(int group, const OperationEntry* entry)
{
    int parent = 0;
    const int status = nc_inq_grp_parent(group, &parent);
    if (status == NC_ENOGRP)
        return std::nullopt;
    checkStatus(status, entry);
    return parent;
}

// Calls visit with the group and its parents, from the inside outwards, until it returns true.
template <class Visit> bool climb(int group, const OperationEntry* entry, Visit&& visit)
{
    for (std::optional<int> place = group; place; place = parentOf(*place, entry)) {
        if (visit(*place))
            return true;
    }
    return false;
}

std::string storedPath(int group, nc_type xtype, const OperationEntry* entry)
{
    std::size_t length = 0;
    checkStatus(nc_inq_grpname_full(group, &length, nullptr), entry);
    std::string path(length + 1, '\0');
    checkStatus(nc_inq_grpname_full(group, nullptr, path.data()), entry);
    path.pop_back();
    char* name = nameBuffer();
    checkStatus(nc_inq_type(group, xtype, name, nullptr), entry);
    return (path == "/" ? path : path + '/') + name;
}

} // namespace

bool isAround(int group, int other, const OperationEntry* entry)
{
    return climb(other, entry, [=](int place) { return place == group; });
}

std::optional<int> groupOfType(int ncid, nc_type xtype, const OperationEntry* entry)
{
    int found = ncid;
    if (climb(ncid, entry, [&](int place) { return defines(found = place, xtype, entry); }))
        return found;
    std::vector<int> groups = {fileIdOf(ncid)};
    while (!groups.empty()) {
        const int group = groups.back();
        groups.pop_back();
        if (defines(group, xtype, entry))
            return group;
        const std::vector<int> inner =
            listOf(entry, [=](int* count, int* list) { return nc_inq_grps(group, count, list); });
        groups.insert(groups.end(), inner.begin(), inner.end());
    }
    return std::nullopt;
}

Hdf5Id openStoredType(int ncid, nc_type xtype, const OperationEntry* entry)
{
    const hid_t file = isStoredInHdf5(ncid) ? hdf5File(ncid, entry) : H5I_INVALID_HID;
    if (file < 0)
        return {};
    const std::optional<int> group = groupOfType(ncid, xtype, entry);
    if (!group)
        return {};
    const std::string path = storedPath(*group, xtype, entry);
    const QuietHdf5 quiet;
    return Hdf5Id(H5Topen2(file, path.c_str(), H5P_DEFAULT));
}

} // namespace Ovard::gridio
