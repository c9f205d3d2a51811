// SPDX-License-Identifier: BSD-3-Clause
#include "types/variable_values.h"

#include "check_status.h"
#include "data/elements/shapes.h"

namespace Ovard::gridio {

// Always by the strided call: the one for a whole variable fails for some strings.
BlockValues::BlockValues(Variable& variable, const Type& type, const Block& block)
    : type_(type), count_(productOf(block.count)), size_(type.size), values_(type, count_),
      fill_(type, 1), first_(values_.data())
{
    variable.requireAccessibleValues();
    const int status = read(variable, block);
    // There is nothing to read of a whole variable with a dimension of length 0.
    if (status == NC_EINVALCOORDS && block.isWhole && count_ == 0)
        return;
    checkStatus(status, variable.entry());
}

int BlockValues::read(Variable& variable, const Block& block)
{
    if (variable.storageModel() == NC_FORMATX_NC_HDF5) {
        const LibraryBlock inFile = libraryBlock(variable, block);
        if (isMisreadWhenPartlyWritten(inFile, variable.entry()))
            return readPartly(variable, inFile);
    }
    return nc_get_vars(variable.ncid(), variable.varid(), block.start.data(), block.count.data(),
                       block.stride.data(), values_.data());
}

int BlockValues::readPartly(Variable& variable, const LibraryBlock& block)
{
    together_ = zeroedValues(type_, count_);
    const PartlyRead result =
        readPartlyWritten(block, nc_get_vars,
                          {size_, values_.data(), fill_.data(), together_.get()}, variable.entry());
    if (result.isSpread)
        first_ = together_.get();
    return result.status;
}

int writeValues(Variable& variable, const Block& block, const void* values)
{
    variable.requireAccessibleValues();
    return nc_put_vars(variable.ncid(), variable.varid(), block.start.data(), block.count.data(),
                       block.stride.data(), values);
}

} // namespace Ovard::gridio
