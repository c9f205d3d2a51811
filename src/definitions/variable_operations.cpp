// SPDX-License-Identifier: BSD-3-Clause
#include "definitions/definition_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/name_buffer.h"
#include "convert/result_builders.h"
#include "data/known_dimensions.h"
#include "definitions/dimension_rows.h"
#include "error_identifiers.h"
#include "storage_model.h"

#include <netcdf.h>

#include <algorithm>

namespace Ovard::gridio::operations {
namespace {

// Of this group, not of one around it.
bool isOwnDimension(int ncid, const std::string& name, const OperationEntry* entry)
{
    int dimid = 0;
    if (nc_inq_dimid(ncid, name.c_str(), &dimid) != NC_NOERR)
        return false;
    int count = 0;
    checkStatus(nc_inq_dimids(ncid, &count, nullptr, 0), entry);
    std::vector<int> own(static_cast<std::size_t>(count));
    checkStatus(nc_inq_dimids(ncid, nullptr, own.data(), 0), entry);
    return std::find(own.begin(), own.end(), dimid) != own.end();
}

// Fails for what the library refuses before it looks at the variable. It is asked to rename one
// that can not exist.
void requireChangeableName(int ncid, const std::string& name, const OperationEntry* entry)
{
    constexpr int noVariable = -77;
    const int refusal = nc_rename_var(ncid, noVariable, name.c_str());
    if (refusal != NC_ENOTVAR)
        checkStatus(refusal, entry);
}

// In a netCDF-4 file the library looks for the dimension after which a variable is named, and
// crashes when the variable has none, or has lost it. All else is left to it.
void requireRenameable(int ncid, int varid, const std::string& name, const OperationEntry* entry)
{
    const int model = storageModel(ncid);
    if (model == NC_FORMATX_NC3)
        return;
    requireChangeableName(ncid, name, entry);
    int ndims = 0;
    checkStatus(nc_inq_varndims(ncid, varid, &ndims), entry);
    std::vector<int> dimids(static_cast<std::size_t>(ndims));
    if (ndims > 0)
        checkStatus(nc_inq_vardimid(ncid, varid, dimids.data()), entry);
    requireKnownDimensions(ncid, dimids.data(), dimids.size(), entry);
    if (ndims == 0 && model == NC_FORMATX_NC_HDF5 && isOwnDimension(ncid, name, entry))
        raiseLibraryFailure(NC_ENAMEINUSE, entry);
}

} // namespace

void defVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
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
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "variable");

    int varid = 0;
    checkStatus(nc_inq_varid(ncid, name.c_str(), &varid), entry);
    results[0] = intResult(varid);
}

void inqVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
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
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::string name = readText(args[2], "variable");

    requireRenameable(ncid, varid, name, entry);
    checkStatus(nc_rename_var(ncid, varid, name.c_str()), entry);
}

} // namespace Ovard::gridio::operations
