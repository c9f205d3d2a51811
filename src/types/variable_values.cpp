// SPDX-License-Identifier: BSD-3-Clause
#include "types/variable_values.h"

#include "any_error_identifiers.h"
#include "check_status.h"
#include "data/elements/shapes.h"
#include "library/guards/fixed_length_strings.h"
#include "library/guards/foreign_layouts.h"

namespace Ovard::gridio {
namespace {

bool isFixedLength(const Variable& variable, const Type& type)
{
    return type.kind == TypeKind::string &&
           hasFixedLengthStrings(variable.ncid(), variable.varid(), variable.rank(),
                                 variable.entry());
}

} // namespace

// Always by the strided call: the one for a whole variable fails for some strings.
BlockValues::BlockValues(Variable& variable, const Type& type, const Block& block)
    : type_(type), count_(productOf(block.count)), size_(type.size), values_(type, count_),
      fill_(type, 1), first_(values_.data())
{
    variable.requireAccessibleValues();
    const int status = read(variable, block);
    // A whole variable with a dimension of length 0 has no values to read.
    if (status == NC_EINVALCOORDS && block.isWhole && count_ == 0)
        return;
    checkStatus(status, variable.entry());
}

int BlockValues::read(Variable& variable, const Block& block)
{
    const GetVarsCall getVars = callFor(variable);
    if (variable.storageModel() == NC_FORMATX_NC_HDF5) {
        const LibraryBlock inFile = libraryBlock(variable, block);
        if (isMisreadWhenPartlyWritten(inFile, variable.entry())) {
            together_ = zeroedValues(type_, count_);
            const PartlyRead result = readPartlyWritten(
                inFile, getVars, {size_, values_.data(), fill_.data(), together_.get()},
                variable.entry());
            first_ = result.isSpread ? together_.get() : first_;
            return result.status;
        }
    }
    return getVars(variable.ncid(), variable.varid(), block.start.data(), block.count.data(),
                   block.stride.data(), values_.data());
}

GetVarsCall BlockValues::callFor(const Variable& variable) const
{
    if (!isFixedLength(variable, type_))
        return nc_get_vars;
    return [&variable](int ncid, int varid, const std::size_t* start, const std::size_t* count,
                       const std::ptrdiff_t* stride, void* values) {
        return getFixedLengthStrings(ncid, varid, start, count, stride, variable.rank(),
                                     static_cast<char**>(values), variable.entry());
    };
}

namespace {

void writeOneByOne(const Variable& variable, const Type& type, const Block& block,
                   const char* values)
{
    const std::size_t count = productOf(block.count);
    for (std::size_t i = 0; i < count; ++i) {
        SizeVector index = block.start;
        std::size_t rest = i;
        for (std::size_t d = index.size(); d-- > 0; rest /= block.count[d])
            index[d] += rest % block.count[d] * static_cast<std::size_t>(block.stride[d]);
        checkStatus(
            nc_put_var1(variable.ncid(), variable.varid(), index.data(), values + i * type.size),
            variable.entry());
    }
}

} // namespace

void writeValues(Variable& variable, const Type& type, const Block& block, const void* values)
{
    variable.requireAccessibleValues();
    if (isFixedLength(variable, type))
        vxErrMsgId(any::foreignType(type.name));
    requireWritable(variable.ncid(), type, variable.entry());
    if (type.isWrittenAlone)
        return writeOneByOne(variable, type, block, static_cast<const char*>(values));
    checkStatus(nc_put_vars(variable.ncid(), variable.varid(), block.start.data(),
                            block.count.data(), block.stride.data(), values),
                variable.entry());
}

void requireWritable(int ncid, const Type& type, const OperationEntry* entry)
{
    const bool isUserType = type.id > NC_MAX_ATOMIC_TYPE;
    if (!type.isWritable || (isUserType && !isStoredAsInMemory(ncid, type.id, entry)))
        vxErrMsgId(any::foreignType(type.name));
}

} // namespace Ovard::gridio
