// SPDX-License-Identifier: BSD-3-Clause
#include "data/elements/blocks.h"

namespace Ovard::gridio {

Block wholeBlock(Variable& variable)
{
    const SizeVector& lengths = variable.lengths();
    return {SizeVector(lengths.size(), 0), lengths, StrideVector(lengths.size(), 1), true};
}

LibraryBlock libraryBlock(Variable& variable, const Block& block)
{
    return {variable.ncid(),    variable.varid(),   variable.dimensionIds().data(),
            variable.rank(),    block.start.data(), block.count.data(),
            block.stride.data()};
}

int readBlock(Variable& variable, const ElementType& element, const Block& block, void* destination)
{
    const int ncid = variable.ncid();
    const int varid = variable.varid();
    variable.requireAccessibleValues();
    if (variable.storageModel() == NC_FORMATX_NC_HDF5) {
        const LibraryBlock inFile = libraryBlock(variable, block);
        if (isMisreadWhenPartlyWritten(inFile, variable.entry())) {
            alignas(8) char fill[8] = {};
            char* values = static_cast<char*>(destination);
            return readPartlyWritten(inFile, element.getVars, {element.size, values, fill, values},
                                     variable.entry())
                .status;
        }
    }
    if (block.isWhole)
        return element.getVar(ncid, varid, destination);
    return element.getVars(ncid, varid, block.start.data(), block.count.data(), block.stride.data(),
                           destination);
}

int writeBlock(Variable& variable, const ElementType& element, const Block& block,
               const void* values)
{
    variable.requireAccessibleValues();
    if (block.isWhole)
        return element.putVar(variable.ncid(), variable.varid(), values);
    return element.putVars(variable.ncid(), variable.varid(), block.start.data(),
                           block.count.data(), block.stride.data(), values);
}

} // namespace Ovard::gridio
