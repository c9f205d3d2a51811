// SPDX-License-Identifier: BSD-3-Clause
#include "definitions/definition_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/name_buffer.h"
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

    int ndims = 0; // asked for beforehand: a classic file may hold more than NC_MAX_VAR_DIMS
    checkStatus(nc_inq_varndims(ncid, varid, &ndims), entry);
    std::vector<int> dimids(static_cast<std::size_t>(ndims));
    char* name = nameBuffer();
    nc_type xtype = NC_NAT;
    int natts = 0;
    checkStatus(nc_inq_var(ncid, varid, name, &xtype, nullptr, dimids.data(), &natts), entry);
    std::reverse(dimids.begin(), dimids.end());
    results[0] = textResult(name);
    results[1] = intResult(xtype);
    results[2] = idVectorToRow(dimids);
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
