// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/slabs.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// The largest number of the indices that a chunk of that length holds.
std::size_t heldBy(std::size_t length, const Indices& indices)
{
    return std::min(indices.count, (length - 1) / indices.step + 1);
}

} // namespace

SizeVector chunkLengths(const Variable& variable)
{
    SizeVector lengths(variable.rank(), 1);
    int storage = NC_CONTIGUOUS;
    SizeVector chunks(variable.rank());
    if (nc_inq_var_chunking(variable.ncid(), variable.varid(), &storage, chunks.data()) ==
            NC_NOERR &&
        storage == NC_CHUNKED)
        lengths = chunks;
    return lengths;
}

SizeVector slabLengths(const BlockIndices& block, const SizeVector& chunkLengths,
                       std::size_t elements)
{
    SizeVector lengths = chunkLengths;
    std::size_t held = 1;
    for (std::size_t i = 0; i < block.size(); ++i)
        held *= heldBy(lengths[i], block[i]);
    for (std::size_t i = block.size(); i-- > 0;) {
        const std::size_t factor = std::max<std::size_t>(elements / held, 1);
        const std::size_t chunks = block[i].at(block[i].count - 1) / lengths[i] + 1;
        held /= heldBy(lengths[i], block[i]);
        lengths[i] *= std::min(factor, chunks);
        if (factor < chunks)
            break;
        held *= block[i].count;
    }
    return lengths;
}

Block slabOf(const BlockIndices& block, const Spans& spans)
{
    Block slab{SizeVector(spans.size()), SizeVector(spans.size()), StrideVector(spans.size())};
    for (std::size_t i = 0; i < spans.size(); ++i) {
        slab.start[i] = block[i].at(spans[i].target);
        slab.count[i] = spans[i].count;
        slab.stride[i] = static_cast<std::ptrdiff_t>(block[i].step);
    }
    return slab;
}

} // namespace Ovard::gridio
