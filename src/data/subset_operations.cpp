// SPDX-License-Identifier: BSD-3-Clause
// Subset reads and writes: one value, a block or a strided block, all three through the strided
// library calls.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/block_arguments.h"
#include "data/elements/element_storage.h"
#include "data/elements/shapes.h"

namespace Ovard::gridio::operations {

void getVarSubset(int, vxArray* results[], int nargs, const vxArray* args[],
                  const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Block block = readBlockArguments(args + 2, nargs - 2);
    const ElementType& element = elementTypeOf(subsetReads, entry);

    Variable variable(ncid, varid, entry);
    requireMatchingLengths(block, variable, Access::read);
    variable.requireAccessibleValues();
    // The buffer of a text read is deliberately twice as large as its bytes need.
    const ElementResult values(results[0], element, toHostDimensions(block.count),
                               sizeof(char16_t));
    checkStatus(readBlock(variable, element, block, values.destination()), entry);
    values.finish();
}

void putVarSubset(int, vxArray*[], int nargs, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Block block = readBlockArguments(args + 2, nargs - 3);
    const vxArray* data = args[nargs - 1];
    const ElementType& element = elementTypeOf(subsetWrites, entry);
    requireVariableData(data, entry);

    Variable variable(ncid, varid, entry);
    requireMatchingLengths(block, variable, Access::write);
    requireMatchingCount(block, vxGetNumberOfElements(data));
    variable.requireAccessibleValues();
    const ElementSource values(data, element);
    checkStatus(writeBlock(variable, element, block, values.get()), entry);
}

} // namespace Ovard::gridio::operations
