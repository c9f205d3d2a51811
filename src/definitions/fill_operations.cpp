// SPDX-License-Identifier: BSD-3-Clause
// Fill values: the only argument that is read as a type found in the file.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/result_builders.h"
#include "data/elements/element_types.h"
#include "error_identifiers.h"

namespace Ovard::gridio::operations {
namespace {

// The library's no-fill flag.
constexpr int noFillOn = 1;
constexpr int noFillOff = 0;

const ElementType& fillElementType(nc_type xtype)
{
    const ElementType* element = findExternalType(xtype);
    if (element == nullptr)
        vxErrMsgId(netcdf::unhandledFillDatatype(xtype));
    return *element;
}

} // namespace

// The capitals are deliberate; no other operation on variables has them.
void defVarFill(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0], "NCID");
    const int varid = readIntScalar(args[1], "VARID");
    const bool noFill = readFlag(args[2], "FILL FLAG");
    if (noFill) { // deliberately ignores the value, which may be anything
        checkStatus(nc_def_var_fill(ncid, varid, noFillOn, nullptr), entry);
        return;
    }

    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_var(ncid, varid, nullptr, &xtype, nullptr, nullptr, nullptr), entry);
    alignas(8) unsigned char value[8] = {};
    const ElementType& element = fillElementType(xtype);
    element.form->readFillValue(args[3], element, value);
    checkStatus(nc_def_var_fill(ncid, varid, noFillOff, value), entry);
}

void inqVarFill(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");

    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_vartype(ncid, varid, &xtype), entry);
    const ElementType& element = fillElementType(xtype);
    vxArray* value = element.form->createFillValue(element);
    results[1] = value;
    int noFill = 0;
    checkStatus(nc_inq_var_fill(ncid, varid, &noFill, vxGetWritableData(value)), entry);
    results[0] = flagResult(noFill != 0);
}

} // namespace Ovard::gridio::operations
