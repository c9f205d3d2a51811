// SPDX-License-Identifier: BSD-3-Clause
// Subset reads and writes: one value, a block or a strided block, all three through the strided
// library calls.
#include "check_status.h"
#include "convert/argument_readers.h"
#include "data/elements/blocks.h"
#include "data/elements/element_storage.h"
#include "data/elements/shapes.h"
#include "error_identifiers.h"

namespace Ovard::gridio::operations {
namespace {

// Reads START and as many of COUNT and STRIDE as are given: what is missing becomes ones.
Block readBlockArguments(const vxArray* vectors[], int vectorCount)
{
    Block block;
    block.start = toSizeVector(vectors[0], "START");
    const std::size_t rank = block.start.size();
    block.count = vectorCount > 1 ? toSizeVector(vectors[1], "COUNT") : SizeVector(rank, 1);
    block.stride = vectorCount > 2 ? toStrideVector(vectors[2], "STRIDE") : StrideVector(rank, 1);
    return block;
}

enum class Access { read, write };

// Raises badIndexArgumentLength unless the vectors have one element for each dimension of the
// variable. For COUNT and STRIDE a read deliberately reports the required length twice, a write
// also the length that was given.
void requireMatchingLengths(const Block& block, const Variable& variable, Access access)
{
    const auto require = [&](const char* label, std::size_t required, std::size_t length,
                             std::size_t shown) {
        if (length != required)
            vxErrMsgId(netcdf::badIndexArgumentLength(
                label, variable.name(), static_cast<long>(required), static_cast<long>(shown)));
    };

    const std::size_t rank = block.start.size();
    require("START", variable.rank(), rank, rank);
    const auto shown = [&](std::size_t given) { return access == Access::read ? rank : given; };
    require("COUNT", rank, block.count.size(), shown(block.count.size()));
    require("STRIDE", rank, block.stride.size(), shown(block.stride.size()));
}

void requireMatchingCount(const Block& block, const vxArray* data)
{
    const std::size_t product = productOf(block.count);
    const std::size_t given = vxGetNumberOfElements(data);
    if (product != given)
        vxErrMsgId(
            netcdf::countNotEqualToData(static_cast<long>(product), static_cast<long>(given)));
}

} // namespace

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
    // The buffer of a text read is deliberately twice what its bytes need.
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
    requireMatchingCount(block, data);
    variable.requireAccessibleValues();
    const ElementSource values(data, element);
    checkStatus(writeBlock(variable, element, block, values.get()), entry);
}

} // namespace Ovard::gridio::operations
