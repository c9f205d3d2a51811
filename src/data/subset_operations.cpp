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
#include "data/unwritten_elements.h"
#include "error_identifiers.h"
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

enum class Access { read, write };

// Raises badIndexArgumentLength unless the vectors have one element for each dimension of the
// variable. For COUNT and STRIDE a read deliberately reports the required length twice, a write
// also the length that was given.
void requireMatchingLengths(const Subset& subset, int ncid, int varid, Access access,
                            const OperationEntry* entry)
{
    int ndims = 0;
    checkStatus(nc_inq_varndims(ncid, varid, &ndims), entry);
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

// Asked only where the library does not do so itself.
void requireDimensions(const Subset& subset, int ncid, int varid, const OperationEntry* entry)
{
    DimensionVector<int> dimids(subset.start.size());
    checkStatus(nc_inq_vardimid(ncid, varid, dimids.data()), entry);
    requireKnownDimensions(ncid, dimids.data(), dimids.size(), entry);
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
    requireMatchingLengths(subset, ncid, varid, Access::read, entry);

    const bool inHdf5 = isStoredInHdf5(ncid);
    if (inHdf5)
        requireDimensions(subset, ncid, varid, entry);

    // The buffer of a text read is deliberately twice what its bytes need.
    ElementResult values(results[0], *element, toHostDimensions(subset.count), sizeof(char16_t));
    const auto& [start, count, stride] = subset;
    if (!inHdf5 || !readUnwritten(values, *element, ncid, varid, {start, count, stride}, entry))
        checkStatus(element->getVars(ncid, varid, start.data(), count.data(), stride.data(),
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
    requireMatchingLengths(subset, ncid, varid, Access::write, entry);
    const std::size_t product = productOf(subset.count);
    const std::size_t given = vxGetNumberOfElements(data);
    if (product != given)
        vxErrMsgId(
            netcdf::countNotEqualToData(static_cast<long>(product), static_cast<long>(given)));

    if (isStoredInHdf5(ncid))
        requireDimensions(subset, ncid, varid, entry);

    const ElementSource values(data, *element);
    checkStatus(element->putVars(ncid, varid, subset.start.data(), subset.count.data(),
                                 subset.stride.data(), values.get()),
                entry);
}

} // namespace Ovard::gridio::operations
