// SPDX-License-Identifier: BSD-3-Clause
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "library/guards/oversized_names.h"
#include "library/guards/renamed_dimensions.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {

void defDim(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "dimension");
    const std::size_t length = readSizeScalar(args[2], "dim_length");

    int dimid = 0;
    checkStatus(nc_def_dim(ncid, name.c_str(), length, &dimid), entry);
    results[0] = intResult(dimid);
}

void inqDimID(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const std::string name = readText(args[1], "dimension");

    int dimid = 0;
    checkStatus(nc_inq_dimid(ncid, name.c_str(), &dimid), entry);
    results[0] = intResult(dimid);
}

void inqDim(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int dimid = readIntScalar(args[1], "dimid");

    char* name = nameBuffer();
    std::size_t length = 0;
    checkStatus(nc_inq_dim(ncid, dimid, name, &length), entry);
    results[0] = textResult(name);
    results[1] = sizeResult(length);
}

void renameDim(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int dimid = readIntScalar(args[1], "dimid");
    const std::string name = readText(args[2], "dimension");

    inquireEveryVariable(ncid, entry);
    checkStatus(nc_rename_dim(ncid, dimid, name.c_str()), entry);
}

} // namespace Ovard::gridio::operations
