// SPDX-License-Identifier: BSD-3-Clause
// Storage, byte order, filters, quantisation, chunk caches and fill values of variables.
#include "any/any_arguments.h"
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "error_identifiers.h"
#include "library/guards/misplaced_strings.h"
#include "types/value_reading.h"
#include "types/value_writing.h"
#include "types/variable_values.h"

#include <netcdf_filter.h>

#include <algorithm>

namespace Ovard::gridio::anyOperations {
namespace {

constexpr Word byteOrders[] = {
    {"native", NC_ENDIAN_NATIVE}, {"little", NC_ENDIAN_LITTLE}, {"big", NC_ENDIAN_BIG}};

constexpr Word storages[] = {{"chunked", NC_CHUNKED},
                             {"contiguous", NC_CONTIGUOUS},
                             {"compact", NC_COMPACT},
                             {"unknown", NC_UNKNOWN_STORAGE},
                             {"virtual", NC_VIRTUAL}};

constexpr std::size_t definableStorages = 3;

constexpr Word quantizeModes[] = {{"none", NC_NOQUANTIZE},
                                  {"BitGroom", NC_QUANTIZE_BITGROOM},
                                  {"GranularBitRound", NC_QUANTIZE_GRANULARBR},
                                  {"BitRound", NC_QUANTIZE_BITROUND}};

template <class Number> vxArray* numberRow(const std::vector<Number>& numbers)
{
    const std::size_t dims[] = {numbers.empty() ? std::size_t{0} : std::size_t{1}, numbers.size()};
    vxArray* row = vxCreateUninitNumericArray(2, dims, vxDOUBLE_CLASS, vxREAL);
    std::transform(numbers.begin(), numbers.end(), static_cast<double*>(vxGetWritableData(row)),
                   [](Number number) { return static_cast<double>(number); });
    return row;
}

nc_type typeOf(int ncid, int varid, const OperationEntry* entry)
{
    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_vartype(ncid, varid, &xtype), entry);
    return xtype;
}

std::size_t rankOf(int ncid, int varid, const OperationEntry* entry)
{
    int ndims = 0;
    checkStatus(nc_inq_varndims(ncid, varid, &ndims), entry);
    return static_cast<std::size_t>(ndims);
}

} // namespace

void defVarChunking(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int storage = readWord(args[2], "storage kind", storages, definableStorages);
    const std::vector<unsigned int> given = readUintList(args[3], "chunk sizes");

    const bool isChunked = storage == NC_CHUNKED;
    const std::size_t rank = rankOf(ncid, varid, entry);
    if (isChunked && given.size() != rank)
        vxErrMsgId(netcdf::invalidChunkParameter(static_cast<long>(given.size()),
                                                 static_cast<long>(rank)));
    const std::vector<std::size_t> sizes(given.rbegin(), given.rend());
    checkStatus(nc_def_var_chunking(ncid, varid, storage, isChunked ? sizes.data() : nullptr),
                entry);
}

void inqVarChunking(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    int storage = NC_CONTIGUOUS;
    std::vector<std::size_t> sizes(rankOf(ncid, varid, entry));
    checkStatus(nc_inq_var_chunking(ncid, varid, &storage, sizes.data()), entry);
    if (storage != NC_CHUNKED)
        sizes.clear();
    std::reverse(sizes.begin(), sizes.end());
    results[0] = wordResult(storage, storages);
    results[1] = numberRow(sizes);
}

void defVarEndian(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int order = readWord(args[2], "byte order", byteOrders);

    checkStatus(nc_def_var_endian(ncid, varid, order), entry);
}

void inqVarEndian(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    int order = 0;
    checkStatus(nc_inq_var_endian(ncid, varid, &order), entry);
    results[0] = wordResult(order, byteOrders);
}

void defVarFilter(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const unsigned int id = readUintScalar(args[2], "filter");
    const std::vector<unsigned int> parameters = readUintList(args[3], "filter parameters");

    // Of a file in data mode the library says that it is in define mode.
    const int status = nc_def_var_filter(ncid, varid, id, parameters.size(), parameters.data());
    checkStatus(status == NC_EINDEFINE ? NC_ENOTINDEFINE : status, entry);
}

// The identifiers of the filters, and the parameters of each in a cell.
void inqVarFilters(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    std::size_t count = 0;
    checkStatus(nc_inq_var_filter_ids(ncid, varid, &count, nullptr), entry);
    std::vector<unsigned int> ids(count);
    checkStatus(nc_inq_var_filter_ids(ncid, varid, &count, ids.data()), entry);
    const std::size_t dims[] = {count == 0 ? std::size_t{0} : std::size_t{1}, count};
    vxArray* parameters = vxCreateCellArray(2, dims);
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t length = 0;
        checkStatus(nc_inq_var_filter_info(ncid, varid, ids[i], &length, nullptr), entry);
        std::vector<unsigned int> values(length);
        checkStatus(nc_inq_var_filter_info(ncid, varid, ids[i], nullptr, values.data()), entry);
        vxSetCell(parameters, i, numberRow(values));
    }
    results[0] = numberRow(ids);
    results[1] = parameters;
}

void inqFilterAvail(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const unsigned int id = readUintScalar(args[1], "filter");

    const int status = nc_inq_filter_avail(ncid, id);
    if (status != NC_ENOFILTER)
        checkStatus(status, entry);
    results[0] = flagResult(status == NC_NOERR);
}

void inqVarSzip(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    int options = 0;
    int pixels = 0;
    checkStatus(nc_inq_var_szip(ncid, varid, &options, &pixels), entry);
    results[0] = intResult(options);
    results[1] = intResult(pixels);
}

void defVarQuantize(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const int mode = readWord(args[2], "quantize mode", quantizeModes);
    const int digits = readIntScalar(args[3], "nsd");

    checkStatus(nc_def_var_quantize(ncid, varid, mode, digits), entry);
}

void inqVarQuantize(int, vxArray* results[], int, const vxArray* args[],
                    const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    int mode = NC_NOQUANTIZE;
    int digits = 0;
    checkStatus(nc_inq_var_quantize(ncid, varid, &mode, &digits), entry);
    results[0] = wordResult(mode, quantizeModes);
    results[1] = intResult(mode == NC_NOQUANTIZE ? 0 : digits);
}

void setVarChunkCache(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const std::size_t size = readSizeScalar(args[2], "size");
    const std::size_t slots = readSizeScalar(args[3], "nelems");
    const float preemption = readFloatScalar(args[4], "preemption");

    checkStatus(nc_set_var_chunk_cache(ncid, varid, size, slots, preemption), entry);
}

void getVarChunkCache(int, vxArray* results[], int, const vxArray* args[],
                      const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    std::size_t size = 0;
    std::size_t slots = 0;
    float preemption = 0;
    checkStatus(nc_get_var_chunk_cache(ncid, varid, &size, &slots, &preemption), entry);
    results[0] = sizeResult(size);
    results[1] = sizeResult(slots);
    results[2] = vxCreateDoubleScalar(preemption);
}

void defVarFill(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const bool noFill = readFlag(args[2], "no_fill flag");
    if (noFill) { // deliberately ignores the value, which may be anything
        checkStatus(nc_def_var_fill(ncid, varid, NC_NOFILL, nullptr), entry);
        return;
    }

    const TypeTree types(ncid, typeOf(ncid, varid, entry), entry);
    const OutgoingValues value(types.root(), args[3], 1);
    requireWritable(ncid, types.root(), entry);
    requirePlacedStrings(ncid, types.root().id, entry);
    checkStatus(nc_def_var_fill(ncid, varid, NC_FILL, value.get()), entry);
}

void inqVarFill(int nlhs, vxArray* results[], int, const vxArray* args[],
                const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    const TypeTree types(ncid, typeOf(ncid, varid, entry), entry);
    int noFill = 0;
    if (nlhs < 2) {
        checkStatus(nc_inq_var_fill(ncid, varid, &noFill, nullptr), entry);
        results[0] = flagResult(noFill != 0);
        return;
    }
    requirePlacedStrings(ncid, types.root().id, entry);
    LibraryValues value(types.root(), 1);
    checkStatus(nc_inq_var_fill(ncid, varid, &noFill, value.data()), entry);
    results[0] = flagResult(noFill != 0);
    results[1] = readValues(types.root(), value.places(), {}, EnumerationForm::integers);
}

} // namespace Ovard::gridio::anyOperations
