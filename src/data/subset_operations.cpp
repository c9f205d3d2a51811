// SPDX-License-Identifier: BSD-3-Clause
// Subset reads and writes: one value, a block or a strided block, all three through the strided
// library calls.
#include "data/data_operations.h"

#include "check_status.h"
#include "convert/argument_readers.h"
#include "convert/name_buffer.h"
#include "data/element_storage.h"
#include "data/element_types.h"
#include "data/known_dimensions.h"
#include "data/rank_limit.h"
#include "data/shapes.h"
#include "error_identifiers.h"
#include "library/partly_written_variables.h"
#include "storage_model.h"

namespace Ovard::gridio::operations {
namespace {

// All in the library's dimension order.
struct Subset {
    SizeVector start;
    SizeVector count;
    StrideVector stride;
};

// Reads START and as many of COUNT and STRIDE as there are: what is missing becomes ones.
Subset readSubset(const vxArray* vectors[], int vectorCount)
{
    Subset subset;
    subset.start = toSizeVector(vectors[0], "START");
    const std::size_t rank = subset.start.size();
    subset.count = vectorCount > 1 ? toSizeVector(vectors[1], "COUNT") : SizeVector(rank, 1);
    subset.stride = vectorCount > 2 ? toStrideVector(vectors[2], "STRIDE") : StrideVector(rank, 1);
    return subset;
}

// The variable's dimensions: how many, and in HDF5, where there are 32 at most, which.
struct Dimensions {
    Dimensions(int ncid, int varid, const OperationEntry* entry) : inHdf5(isStoredInHdf5(ncid))
    {
        int* wanted = inHdf5 ? ids : nullptr;
        checkStatus(nc_inq_var(ncid, varid, nullptr, nullptr, &count, wanted, nullptr), entry);
    }

    bool inHdf5;
    int count = 0;
    int ids[NC_MAX_VAR_DIMS];
};

enum class Access { read, write };

// Raises badIndexArgumentLength unless the vectors have one element for each dimension of the
// variable. For COUNT and STRIDE a read deliberately reports the required length twice, a write
// also the length that was given.
void requireMatchingLengths(const Subset& subset, int ndims, int ncid, int varid, Access access,
                            const OperationEntry* entry)
{
    const auto require = [&](const char* label, std::size_t required, std::size_t length,
                             std::size_t shown) {
        if (length == required)
            return;
        char* name = nameBuffer();
        checkStatus(nc_inq_varname(ncid, varid, name), entry);
        vxErrMsgId(netcdf::badIndexArgumentLength(label, name, static_cast<long>(required),
                                                  static_cast<long>(shown)));
    };

    const std::size_t rank = subset.start.size();
    require("START", static_cast<std::size_t>(ndims), rank, rank);
    const auto shown = [&](std::size_t given) { return access == Access::read ? rank : given; };
    require("COUNT", rank, subset.count.size(), shown(subset.count.size()));
    require("STRIDE", rank, subset.stride.size(), shown(subset.stride.size()));
    requireAccessibleRank(ndims, entry);
}

} // namespace

void getVarSubset(int, vxArray* results[], int nargs, const vxArray* args[],
                  const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Subset subset = readSubset(args + 2, nargs - 2);
    const ElementType* element = findElementType(subsetReads, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));
    const Dimensions dimensions(ncid, varid, entry);
    requireMatchingLengths(subset, dimensions.count, ncid, varid, Access::read, entry);
    if (dimensions.inHdf5)
        requireKnownDimensions(ncid, dimensions.ids, subset.start.size(), entry);

    // The buffer of a text read is deliberately twice what its bytes need.
    ElementResult values(results[0], *element, toHostDimensions(subset.count), sizeof(char16_t));
    const LibraryBlock block{ncid,
                             varid,
                             dimensions.ids,
                             subset.start.size(),
                             subset.start.data(),
                             subset.count.data(),
                             subset.stride.data()};
    if (dimensions.inHdf5 && isMisreadWhenPartlyWritten(block, entry))
        checkStatus(
            readPartlyWritten(block, element->getVars, element->size, values.destination(), entry),
            entry);
    else
        checkStatus(element->getVars(ncid, varid, block.start, block.count, block.stride,
                                     values.destination()),
                    entry);
    values.finish();
}

void putVarSubset(int, vxArray*[], int nargs, const vxArray* args[], const OperationEntry* entry)
{
    const int ncid = readNcid(args[0]);
    const int varid = readIntScalar(args[1], "varid");
    const Subset subset = readSubset(args + 2, nargs - 3);
    const vxArray* data = args[nargs - 1];
    const ElementType* element = findElementType(subsetWrites, entry->code);
    if (element == nullptr)
        vxErrMsgId(netcdf::unrecognizedOperation(entry->name));
    requireVariableData(data, entry);
    const Dimensions dimensions(ncid, varid, entry);
    requireMatchingLengths(subset, dimensions.count, ncid, varid, Access::write, entry);
    const std::size_t product = productOf(subset.count);
    const std::size_t given = vxGetNumberOfElements(data);
    if (product != given)
        vxErrMsgId(
            netcdf::countNotEqualToData(static_cast<long>(product), static_cast<long>(given)));

    if (dimensions.inHdf5)
        requireKnownDimensions(ncid, dimensions.ids, subset.start.size(), entry);

    const ElementSource values(data, *element);
    checkStatus(element->putVars(ncid, varid, subset.start.data(), subset.count.data(),
                                 subset.stride.data(), values.get()),
                entry);
}

} // namespace Ovard::gridio::operations
