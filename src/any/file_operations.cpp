// SPDX-License-Identifier: BSD-3-Clause
// Files, groups and dimensions.
#include "any/any_arguments.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/id_list.h"
#include "convert/result_builders.h"

#include <algorithm>

namespace Ovard::gridio::anyOperations {
namespace {

constexpr Word storageModels[] = {
    {"FORMATX_NC3", NC_FORMATX_NC3},         {"FORMATX_NC_HDF5", NC_FORMATX_NC_HDF5},
    {"FORMATX_NC_HDF4", NC_FORMATX_NC_HDF4}, {"FORMATX_PNETCDF", NC_FORMATX_PNETCDF},
    {"FORMATX_DAP2", NC_FORMATX_DAP2},       {"FORMATX_DAP4", NC_FORMATX_DAP4},
    {"FORMATX_NCZARR", NC_FORMATX_NCZARR}};

// The length is inquired first. The buffer has its own NUL at the end, since the library may write
// none.
template <class InquireLength, class InquireText>
vxArray* inquireText(const OperationEntry* entry, const InquireLength& inquireLength,
                     const InquireText& inquireText)
{
    std::size_t length = 0;
    checkStatus(inquireLength(&length), entry);
    std::string text(length + 1, '\0');
    checkStatus(inquireText(text.data()), entry);
    return textResult(text.c_str());
}

std::vector<int> idsOf(const OperationEntry* entry, int ncid, int (*inquire)(int, int*, int*))
{
    int count = 0;
    checkStatus(inquire(ncid, &count, nullptr), entry);
    std::vector<int> ids(static_cast<std::size_t>(count));
    checkStatus(inquire(ncid, nullptr, ids.data()), entry);
    return ids;
}

// The unlimited dimensions of a group and, on request, of its parents.
std::vector<int> unlimitedDimensions(int group, bool includeParents, const OperationEntry* entry)
{
    std::vector<int> all = idsOf(entry, group, nc_inq_unlimdims);
    while (includeParents) {
        const int status = nc_inq_grp_parent(group, &group);
        if (status == NC_ENOGRP || status == NC_ENOTNC4) // the root, and a file without groups
            break;
        checkStatus(status, entry);
        const std::vector<int> outer = idsOf(entry, group, nc_inq_unlimdims);
        all.insert(all.end(), outer.begin(), outer.end());
    }
    std::sort(all.begin(), all.end());
    all.erase(std::unique(all.begin(), all.end()), all.end());
    return all;
}

} // namespace

void inqFormatExtended(int, vxArray* results[], int, const vxArray* args[],
                       const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    int model = 0;
    int mode = 0;
    checkStatus(nc_inq_format_extended(ncid, &model, &mode), entry);
    results[0] = wordResult(model, storageModels);
    results[1] = intResult(mode);
}

void inqPath(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    results[0] = inquireText(
        entry, [=](std::size_t* length) { return nc_inq_path(ncid, length, nullptr); },
        [=](char* text) { return nc_inq_path(ncid, nullptr, text); });
}

void inqGrpFullNcid(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string path = readText(args[1], "group path");

    int group = 0;
    checkStatus(nc_inq_grp_full_ncid(ncid, path.c_str(), &group), entry);
    results[0] = intResult(group);
}

void renameGrp(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int group = readNcid(args[0]);
    const std::string name = readText(args[1], "group name");

    checkStatus(nc_rename_grp(group, name.c_str()), entry);
}

void inqDimIDs(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const bool includeParents = readFlag(args[1], "include_parents flag");

    results[0] = inquireIdRow(entry, [=](int* count, int* ids) {
        return nc_inq_dimids(ncid, count, ids, includeParents ? 1 : 0);
    });
    results[1] = idVectorToRow(unlimitedDimensions(ncid, includeParents, entry));
}

} // namespace Ovard::gridio::anyOperations
