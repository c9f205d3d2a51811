// SPDX-License-Identifier: BSD-3-Clause
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "data/elements/variable.h"
#include "definitions/dimension_rows.h"
#include "error_identifiers.h"
#include "library/guards/missing_dimensions.h"
#include "library/guards/renamed_scalars.h"
#include "library/storage_model.h"

namespace Ovard::gridio::operations {
namespace {

// Raises what nc_rename_var reports before it looks up the variable (a read-only file, a bad name),
// by renaming a variable that cannot exist.
void requireChangeableName(int ncid, const std::string& name, const OperationEntry* entry)
{
    constexpr int noVariable = NC_GLOBAL - 1;
    const int refusal = nc_rename_var(ncid, noVariable, name.c_str());
    if (refusal != NC_ENOTVAR)
        checkStatus(refusal, entry);
}

// In a netCDF-4 file the library looks for the dimension that the variable is named after, and
// crashes when the variable has no dimension, or has lost it. Everything else is left to the
// library.
void requireRenameable(int ncid, int varid, const std::string& name, const OperationEntry* entry)
{
    if (storageModel(ncid) == NC_FORMATX_NC3)
        return;
    requireChangeableName(ncid, name, entry);
    Variable variable(ncid, varid, entry);
    requireKnownDimensions(ncid, variable.dimensionIds().data(), variable.rank(), entry);
    if (variable.rank() == 0 && variable.storageModel() == NC_FORMATX_NC_HDF5 &&
        isOwnDimension(ncid, name, entry))
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

    Variable variable(ncid, varid, entry);
    const DimensionVector<int>& dimids = variable.dimensionIds();
    int natts = 0;
    checkStatus(nc_inq_varnatts(ncid, varid, &natts), entry);
    results[0] = textResult(variable.name().c_str());
    results[1] = intResult(variable.externalType());
    results[2] = idVectorToRow({dimids.rbegin(), dimids.rend()});
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
