// SPDX-License-Identifier: BSD-3-Clause
// Creating and navigating groups.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "convert/id_list.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {

void defGrp(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int parent = readNcid(args[0]);
    const std::string name = readText(args[1], "group name");

    int group = 0;
    checkStatus(nc_def_grp(parent, name.c_str(), &group), entry);
    results[0] = intResult(group);
}

void inqGrps(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    results[0] =
        inquireIdRow(entry, [=](int* count, int* ids) { return nc_inq_grps(ncid, count, ids); });
}

void inqGrpName(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    char name[NC_MAX_NAME + 1] = "";
    checkStatus(nc_inq_grpname(ncid, name), entry);
    results[0] = textResult(name);
}

void inqGrpNameFull(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    std::size_t length = 0;
    checkStatus(nc_inq_grpname_len(ncid, &length), entry);
    std::string name(length + 1, '\0');
    checkStatus(nc_inq_grpname_full(ncid, nullptr, name.data()), entry);
    results[0] = textResult(name.c_str());
}

void inqGrpParent(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    int parent = 0;
    checkStatus(nc_inq_grp_parent(ncid, &parent), entry);
    results[0] = intResult(parent);
}

void inqNcid(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "group name");

    int group = 0;
    checkStatus(nc_inq_ncid(ncid, name.c_str(), &group), entry);
    results[0] = intResult(group);
}

} // namespace Ovard::gridio::operations
