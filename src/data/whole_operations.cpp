// SPDX-License-Identifier: BSD-3-Clause
// Whole-variable reads and writes.
#include "data/data_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/element_storage.h"
#include "data/element_types.h"
#include "data/rank_limit.h"
#include "data/shapes.h"
#include "error_identifiers.h"
#include "library/partly_written_variables.h"
#include "storage_model.h"

namespace Ovard::gridio::operations {
namespace {

// Of the variable's ndims dimensions, in the library's order, with their identifiers.
SizeVector inquireLengths(int ncid, int varid, int ndims, int (&dimids)[NC_MAX_VAR_DIMS],
                          const OperationEntry* entry)
{
    requireAccessibleRank(ndims, entry);
    SizeVector lengths(static_cast<std::size_t>(ndims));
    if (ndims > 0)
        checkStatus(nc_inq_vardimid(ncid, varid, dimids), entry);
    for (std::size_t i = 0; i < lengths.size(); ++i)
        checkStatus(nc_inq_dimlen(ncid, dimids[i], &lengths[i]), entry);
    return lengths;
}

// What a variable with a zero-length dimension reads as: 0-by-0, deliberately not the variable's
// own shape. Text read from a variable that is not NC_CHAR has no class here.
vxArray* createFlattenedEmpty(const ElementType& element, nc_type xtype)
{
    if (xtype == NC_CHAR)
        return vxCreateCharArray(0, nullptr);
    const vxClassID classId =
        element.hostClass == vxCHAR_CLASS ? vxUNKNOWN_CLASS : element.hostClass;
    return vxCreateUninitNumericArray(0, nullptr, classId, vxREAL);
}

} // namespace

void getVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const ElementType* element = findElementType(wholeReads, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));

    // Never ignored, though the read would answer the same of a bad identifier: not knowing the
    // shape, it would be given too little room. NC_GLOBAL passes, and is left to the read.
    nc_type xtype = NC_NAT;
    int ndims = 0;
    checkStatus(nc_inq_var(ncid, varid, nullptr, &xtype, &ndims, nullptr, nullptr), entry);
    int dimids[NC_MAX_VAR_DIMS];
    const SizeVector lengths = inquireLengths(ncid, varid, ndims, dimids, entry);

    ElementResult values(results[0], *element, toHostDimensions(lengths), sizeof(char));
    const SizeVector start(lengths.size(), 0);
    const StrideVector stride(lengths.size(), 1);
    const LibraryBlock block{ncid,         varid,          dimids,       lengths.size(),
                             start.data(), lengths.data(), stride.data()};
    const int status =
        isStoredInHdf5(ncid) && isMisreadWhenPartlyWritten(block, entry)
            ? readPartlyWritten(block, element->getVars, element->size, values.destination(), entry)
            : element->getVar(ncid, varid, values.destination());
    if (values.count() == 0 && (status == NC_NOERR || status == NC_EINVALCOORDS)) {
        results[0] = createFlattenedEmpty(*element, xtype);
        return;
    }
    checkStatus(status, entry);
    values.finish();
}

// The whole variable as it is now: a write of this kind never adds records.
void putVar(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const vxArray* data = args[2];
    const ElementType* element = findElementType(wholeWrites, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));
    requireVariableData(data, entry);

    int ndims = 0;
    checkStatus(nc_inq_var(ncid, varid, nullptr, nullptr, &ndims, nullptr, nullptr), entry);
    int dimids[NC_MAX_VAR_DIMS];
    const std::size_t size = productOf(inquireLengths(ncid, varid, ndims, dimids, entry));
    if (size != vxGetNumberOfElements(data))
        vxErrMsgId(netcdf::dataSizeMismatch());

    const ElementSource values(data, *element);
    checkStatus(element->putVar(ncid, varid, values.get()), entry);
}

} // namespace Ovard::gridio::operations
