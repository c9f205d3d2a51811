// SPDX-License-Identifier: BSD-3-Clause
// Finding, describing, renaming, deleting and copying attributes.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "library/guards/copied_provenance.h"
#include "library/guards/misplaced_strings.h"
#include "library/guards/oversized_names.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {
void inqAtt(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");

    nc_type xtype = NC_NAT;
    std::size_t length = 0;
    checkStatus(nc_inq_att(ncid, varid, name.c_str(), &xtype, &length), entry);
    results[0] = intResult(xtype);
    results[1] = sizeResult(length);
}

void inqAttID(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");

    int attnum = 0;
    checkStatus(nc_inq_attid(ncid, varid, name.c_str(), &attnum), entry);
    results[0] = intResult(attnum);
}

void inqAttName(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int attnum = readIntScalar(args[2], "attid");

    char* name = nameBuffer();
    checkStatus(nc_inq_attname(ncid, varid, attnum, name), entry);
    results[0] = textResult(name);
}

void renameAtt(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string oldName = readText(args[2], "attribute");
    const std::string newName = readText(args[3], "attribute");

    checkStatus(nc_rename_att(ncid, varid, oldName.c_str(), newName.c_str()), entry);
}

void delAtt(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");

    checkStatus(nc_del_att(ncid, varid, name.c_str()), entry);
}

void copyAtt(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int fromNcid = readNcid(args[0]);
    const int fromVarid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "attribute");
    const int toNcid = readNcid(args[3]);
    const int toVarid = readIntScalar(args[4], "varid");

    const bool isOntoItself = fromNcid == toNcid && fromVarid == toVarid;
    if (isProvenanceAttribute(fromNcid, fromVarid, name) && !isOntoItself)
        return copyProvenance(fromNcid, toNcid, toVarid, entry);
    requirePlacedStringsIn(fromNcid, fromVarid, name, entry);
    checkStatus(nc_copy_att(fromNcid, fromVarid, name.c_str(), toNcid, toVarid), entry);
}

} // namespace Ovard::gridio::operations
