// SPDX-License-Identifier: BSD-3-Clause
// The contents of a file or group, and the library's version.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "error_identifiers.h"
#include "convert/id_list.h"

#include <netcdf.h>

namespace Ovard::gridio::operations {
namespace {

// CDF-5 (code 5) deliberately has no name here, nor has any other code that the library may report.
const char* formatName(int format)
{
    switch (format) {
    case NC_FORMAT_CLASSIC:
        return "FORMAT_CLASSIC";
    case NC_FORMAT_64BIT_OFFSET:
        return "FORMAT_64BIT";
    case NC_FORMAT_NETCDF4:
        return "FORMAT_NETCDF4";
    case NC_FORMAT_NETCDF4_CLASSIC:
        return "FORMAT_NETCDF4_CLASSIC";
    default:
        vxErrMsgId(netcdf::unknownNetCDFFormat(format));
    }
}

} // namespace

void inq(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    int ndims = 0;
    int nvars = 0;
    int ngatts = 0;
    int unlimdimid = 0;
    checkStatus(nc_inq(ncid, &ndims, &nvars, &ngatts, &unlimdimid), entry);
    results[0] = intResult(ndims);
    results[1] = intResult(nvars);
    results[2] = intResult(ngatts);
    results[3] = intResult(unlimdimid);
}

void inqFormat(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    int format = 0;
    checkStatus(nc_inq_format(ncid, &format), entry);
    results[0] = textResult(formatName(format));
}

void inqLibVers(int, vxArray* results[], int, const vxArray*[], const OperationEntry*)
{
    results[0] = textResult(nc_inq_libvers());
}

void inqUnlimDims(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    results[0] = inquireIdRow(
        entry, [=](int* count, int* ids) { return nc_inq_unlimdims(ncid, count, ids); });
}

void inqVarIDs(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);

    results[0] =
        inquireIdRow(entry, [=](int* count, int* ids) { return nc_inq_varids(ncid, count, ids); });
}

void inqDimIDs(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const bool includeParents = readFlag(args[1], "include_parents flag");

    results[0] = inquireIdRow(entry, [=](int* count, int* ids) {
        return nc_inq_dimids(ncid, count, ids, includeParents ? 1 : 0);
    });
}

} // namespace Ovard::gridio::operations
