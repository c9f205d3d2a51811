// SPDX-License-Identifier: BSD-3-Clause
#include "definitions/definition_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "definitions/dimension_rows.h"
#include "error_identifiers.h"

#include <netcdf.h>

#include <algorithm>

namespace Ovard::gridio::operations {

void defVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const std::string name = readText(args[1], "variable");
    const int xtype = readIntScalar(args[2], "xtype");
    const std::vector<int> dimids = toDimIdVector(args[3], "dimids");

    int varid = 0;
    const int ndims = static_cast<int>(dimids.size());
    checkStatus(nc_def_var(ncid, name.c_str(), xtype, ndims, dimids.data(), &varid), entry);
    results[0] = intResult(varid);
}

void inqVarID(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const std::string name = readText(args[1], "variable");

    int varid = 0;
    checkStatus(nc_inq_varid(ncid, name.c_str(), &varid), entry);
    results[0] = intResult(varid);
}

void inqVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const int varid = readIntScalar(args[1], "varid");
    if (varid == NC_GLOBAL)
        vxErrMsgId(netcdf::inqVarNcGlobal());

    char name[NC_MAX_NAME + 1] = "";
    nc_type xtype = NC_NAT;
    int ndims = 0;
    int dimids[NC_MAX_VAR_DIMS];
    int natts = 0;
    checkStatus(nc_inq_var(ncid, varid, name, &xtype, &ndims, dimids, &natts), entry);
    results[0] = textResult(name);
    results[1] = intResult(xtype);
    results[2] = idVectorToRow(
        std::vector<int>(std::reverse_iterator(dimids + ndims), std::reverse_iterator(dimids)));
    results[3] = intResult(natts);
}

void renameVar(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readIntScalar(args[0], "ncid");
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "variable");

    checkStatus(nc_rename_var(ncid, varid, name.c_str()), entry);
}

} // namespace Ovard::gridio::operations
