// SPDX-License-Identifier: BSD-3-Clause
// Whole-variable reads and writes.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/blocks.h"
#include "data/elements/element_storage.h"
#include "data/elements/shapes.h"
#include "error_identifiers.h"

namespace Ovard::gridio::operations {
namespace {

// A variable with a zero-length dimension reads as 0-by-0, deliberately not in the variable's own
// shape. A text variable gives text, whichever operation reads it.
vxArray* createFlattenedEmpty(const ElementType& element, nc_type xtype)
{
    return xtype == NC_CHAR ? vxCreateCharArray(0, nullptr) : element.form->createEmpty(element);
}

} // namespace

void getVar(int, vxArray* results[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const ElementType& element = elementTypeOf(wholeReads, entry);

    Variable variable(ncid, varid, entry);
    const Block all = wholeBlock(variable);
    const ElementResult values(results[0], element, toHostDimensions(all.count), sizeof(char));
    const int status = readBlock(variable, element, all, values.destination());
    if (values.count() == 0 && (status == NC_NOERR || status == NC_EINVALCOORDS)) {
        results[0] = createFlattenedEmpty(element, variable.externalType());
        return;
    }
    checkStatus(status, entry);
    values.finish();
}

// The whole variable at its present size: such a write never adds records.
void putVar(int, vxArray*[], int, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const vxArray* data = args[2];
    const ElementType& element = elementTypeOf(wholeWrites, entry);
    requireVariableData(data, entry);

    Variable variable(ncid, varid, entry);
    const Block all = wholeBlock(variable);
    if (productOf(all.count) != vxGetNumberOfElements(data))
        vxErrMsgId(netcdf::dataSizeMismatch());
    const ElementSource values(data, element);
    checkStatus(writeBlock(variable, element, all, values.get()), entry);
}

} // namespace Ovard::gridio::operations
