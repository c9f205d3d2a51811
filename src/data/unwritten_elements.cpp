// SPDX-License-Identifier: BSD-3-Clause
#include "data/unwritten_elements.h"

#include "check_status.h"
#include "data/shapes.h"

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

// The unlimited dimensions that a variable of the group may have: those of the groups around it,
// too.
DimensionVector<int> unlimitedDimensions(int group, const OperationEntry* entry)
{
    DimensionVector<int> ids;
    for (bool isFile = false; !isFile;) {
        int count = 0;
        checkStatus(nc_inq_unlimdims(group, &count, nullptr), entry);
        const std::size_t known = ids.size();
        ids.resize(known + static_cast<std::size_t>(count));
        if (count > 0)
            checkStatus(nc_inq_unlimdims(group, nullptr, ids.data() + known), entry);
        const int status = nc_inq_grp_parent(group, &group);
        isFile = status == NC_ENOGRP;
        if (!isFile)
            checkStatus(status, entry);
    }
    return ids;
}

// How many of the first dimensions are to be read one index at a time, so that the library meets no
// unlimited dimension with a stride, and none with more than one index after others with more than
// one.
std::size_t dimensionsToSplit(int ncid, const Block& block, const OperationEntry* entry)
{
    const DimensionVector<int> unlimited = unlimitedDimensions(ncid, entry);
    std::size_t split = 0;
    for (std::size_t i = 0; i < block.start.size(); ++i) {
        const bool isUnlimited =
            std::find(unlimited.begin(), unlimited.end(), block.dimids[i]) != unlimited.end();
        if (isUnlimited && block.count[i] > 1)
            split = block.stride[i] > 1 ? i + 1 : i;
    }
    return split;
}

// Whether the last element may be past what was written; if it is not, nothing is. Says no where
// there is no such element: the read of the whole block tells why.
bool endsWithFillValue(int ncid, int varid, const Block& block, const OperationEntry* entry)
{
    nc_type xtype = NC_NAT;
    checkStatus(nc_inq_vartype(ncid, varid, &xtype), entry);
    const ElementType* stored = findExternalType(xtype);
    if (stored == nullptr)
        return false;

    const std::size_t rank = block.start.size();
    SizeVector last(rank);
    for (std::size_t i = 0; i < rank; ++i)
        last[i] = block.start[i] + (block.count[i] - 1) * static_cast<std::size_t>(block.stride[i]);
    alignas(8) char value[8] = {};
    alignas(8) char fill[8] = {};
    int isUnfilled = 0;
    if (nc_get_var1(ncid, varid, last.data(), value) != NC_NOERR)
        return false;
    checkStatus(nc_inq_var_fill(ncid, varid, &isUnfilled, fill), entry);
    return isUnfilled != 0 || std::memcmp(value, fill, stored->size) == 0;
}

void readInPieces(const ElementResult& values, const ElementType& element, int ncid, int varid,
                  const Block& block, std::size_t split, const OperationEntry* entry)
{
    SizeVector start = block.start;
    SizeVector count = block.count;
    std::fill_n(count.begin(), split, 1);
    const std::size_t pieceLength = productOf(count);

    char* destination = static_cast<char*>(values.destination());
    int outOfRange = NC_NOERR; // told at the end, as the library does
    for (std::size_t piece = 0; piece * pieceLength < values.count(); ++piece) {
        std::size_t rest = piece;
        for (std::size_t i = split; i-- > 0; rest /= block.count[i])
            start[i] =
                block.start[i] + rest % block.count[i] * static_cast<std::size_t>(block.stride[i]);
        const int status =
            element.getVars(ncid, varid, start.data(), count.data(), block.stride.data(),
                            destination + piece * pieceLength * element.size);
        if (status == NC_ERANGE)
            outOfRange = status;
        else
            checkStatus(status, entry);
    }
    checkStatus(outOfRange, entry);
}

} // namespace

bool readUnwritten(const ElementResult& values, const ElementType& element, int ncid, int varid,
                   const Block& block, const OperationEntry* entry)
{
    const bool hasStride = std::any_of(block.stride.begin(), block.stride.end(),
                                       [](std::ptrdiff_t step) { return step > 1; });
    if (values.count() <= 1 || (block.start.size() < 2 && !hasStride))
        return false;
    const std::size_t split = dimensionsToSplit(ncid, block, entry);
    if (split == 0 || !endsWithFillValue(ncid, varid, block, entry))
        return false;
    readInPieces(values, element, ncid, varid, block, split, entry);
    return true;
}

} // namespace Ovard::gridio
