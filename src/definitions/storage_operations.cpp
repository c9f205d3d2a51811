// SPDX-License-Identifier: BSD-3-Clause
// Chunking, compression and checksum of netCDF-4 variables.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "data/elements/variable.h"
#include "definitions/dimension_rows.h"
#include "error_identifiers.h"

#include <netcdf.h>

#include <algorithm>

namespace Ovard::gridio::operations {
namespace {

bool isNetcdf4(int ncid, const OperationEntry* entry)
{
    int format = 0;
    checkStatus(nc_inq_format(ncid, &format), entry);
    return format == NC_FORMAT_NETCDF4 || format == NC_FORMAT_NETCDF4_CLASSIC;
}

// A 1-by-n row in the host's order: 1-by-0 without dimensions, deliberately unlike the 0-by-0 of
// contiguous storage.
vxArray* chunkSizeRow(const std::vector<std::size_t>& sizes)
{
    const std::size_t dims[] = {1, sizes.size()};
    vxArray* row = vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    std::transform(sizes.rbegin(), sizes.rend(), static_cast<double*>(vxGetWritableData(row)),
                   [](std::size_t size) { return static_cast<double>(size); });
    return row;
}

} // namespace

void defVarChunking(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int storage = readIntScalar(args[2], "storage");
    const std::vector<std::size_t> sizes = toChunkSizeVector(args[3], "chunk dims");

    if (storage == NC_CHUNKED) {
        const std::size_t ndims = Variable(ncid, varid, entry).rank();
        if (ndims != sizes.size())
            vxErrMsgId(netcdf::invalidChunkParameter(static_cast<long>(sizes.size()),
                                                     static_cast<long>(ndims)));
    } else if (storage != NC_CONTIGUOUS) {
        vxErrMsgId(netcdf::unrecognizedChunkStorage());
    }
    const std::size_t* sizeList = sizes.empty() ? nullptr : sizes.data();
    checkStatus(nc_def_var_chunking(ncid, varid, storage, sizeList), entry);
}

void inqVarChunking(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    if (!isNetcdf4(ncid, entry))
        vxErrMsgId(netcdf::attemptedChunkingInquiryOnNetcdf3File());

    int storage = 0;
    std::vector<std::size_t> sizes(Variable(ncid, varid, entry).rank());
    checkStatus(nc_inq_var_chunking(ncid, varid, &storage, sizes.data()), entry);
    if (storage == NC_CHUNKED) {
        results[0] = textResult("chunked");
        results[1] = chunkSizeRow(sizes);
    } else if (storage == NC_CONTIGUOUS) {
        results[0] = textResult("contiguous");
        results[1] = idVectorToRow({});
    } else {
        vxErrMsgId(netcdf::unrecognizedChunkingCode(storage));
    }
}

void defVarDeflate(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const bool shuffle = readFlag(args[2], "shuffle flag");
    const bool deflate = readFlag(args[3], "deflate flag");
    // Without deflate the level is ignored: it may be anything.
    const int level = deflate ? readIntScalar(args[4], "deflate level") : 0;

    checkStatus(nc_def_var_deflate(ncid, varid, shuffle ? 1 : 0, deflate ? 1 : 0, level), entry);
}

void inqVarDeflate(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    int shuffle = 0;
    int deflate = 0;
    int level = 0;
    checkStatus(nc_inq_var_deflate(ncid, varid, &shuffle, &deflate, &level), entry);
    results[0] = flagResult(shuffle == 1);
    results[1] = flagResult(deflate == 1);
    results[2] = intResult(deflate == 1 ? level : 0);
}

void defVarFletcher32(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int setting = readIntScalar(args[2], "checksum setting");

    checkStatus(nc_def_var_fletcher32(ncid, varid, setting), entry);
}

void inqVarFletcher32(int, vxArray* results[], int, const vxArray* args[],
                      const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    if (!isNetcdf4(ncid, entry))
        vxErrMsgId(netcdf::attemptedChecksumInquiryOnNetcdf3File());

    int setting = 0;
    checkStatus(nc_inq_var_fletcher32(ncid, varid, &setting), entry);
    if (setting == NC_NOCHECKSUM)
        results[0] = textResult("NOCHECKSUM");
    else if (setting == NC_FLETCHER32)
        results[0] = textResult("FLETCHER32");
    else
        vxErrMsgId(netcdf::unrecognizedFletcher32Setting(setting));
}

} // namespace Ovard::gridio::operations
