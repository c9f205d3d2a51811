// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/partly_written_variables.h"

#include "check_status.h"
#include "library/hdf5_file.h"

#include <boost/container/small_vector.hpp>
#include <netcdf.h>

#include <algorithm>
#include <cstring>

namespace Ovard::gridio {
namespace {

template <class T> using Vector = boost::container::small_vector<T, 8>;
using Lengths = Vector<std::size_t>;

// The unlimited dimensions that a variable of the group may have, including those of the parent
// groups.
Vector<int> unlimitedDimensions(int group, const OperationEntry* entry)
{
    Vector<int> ids;
    for (bool isRoot = false; !isRoot;) {
        int count = 0;
        checkStatus(nc_inq_unlimdims(group, &count, nullptr), entry);
        const std::size_t known = ids.size();
        ids.resize(known + static_cast<std::size_t>(count));
        if (count > 0)
            checkStatus(nc_inq_unlimdims(group, nullptr, ids.data() + known), entry);
        const int status = nc_inq_grp_parent(group, &group);
        isRoot = status == NC_ENOGRP;
        if (!isRoot)
            checkStatus(status, entry);
    }
    return ids;
}

// The extents that a variable needs for the whole block to be written: one more than the block's
// last index along each dimension. None if they overflow.
WrittenExtents extentsOf(const LibraryBlock& block)
{
    WrittenExtents ends(block.rank);
    for (std::size_t i = 0; i < block.rank; ++i) {
        const auto stride = static_cast<std::size_t>(block.stride[i]);
        std::size_t reach = 0;
        if (__builtin_mul_overflow(block.count[i] - 1, stride, &reach) ||
            __builtin_add_overflow(reach, block.start[i], &reach) ||
            __builtin_add_overflow(reach, 1, &ends[i]))
            return {};
    }
    return ends;
}

bool isWithin(const WrittenExtents& needed, const WrittenExtents& extents)
{
    return std::equal(needed.begin(), needed.end(), extents.begin(), extents.end(),
                      std::less_equal<>());
}

// How many of the block's indices along each dimension are in the written part.
Lengths writtenCounts(const LibraryBlock& block, const WrittenExtents& extents)
{
    Lengths counts(block.count, block.count + block.rank);
    for (std::size_t i = 0; i < counts.size(); ++i) {
        const std::size_t start = block.start[i];
        const auto stride = static_cast<std::size_t>(block.stride[i]);
        const std::size_t inside = start < extents[i] ? (extents[i] - 1 - start) / stride + 1 : 0;
        counts[i] = std::min(counts[i], inside);
    }
    return counts;
}

std::size_t productOf(const std::size_t* lengths, std::size_t count)
{
    std::size_t product = 1;
    for (std::size_t i = 0; i < count; ++i)
        product *= lengths[i];
    return product;
}

// Repeats an element, in steps that double.
void fillElements(char* destination, std::size_t count, const void* element, std::size_t size)
{
    if (count == 0)
        return;
    std::memcpy(destination, element, size);
    for (std::size_t done = 1; done < count; done *= 2)
        std::memcpy(destination + done * size, destination, std::min(done, count - done) * size);
}

// Distributes the written part, which is contiguous at the beginning of the values, over the whole
// block, and fills the gaps with the fill value. Rows are moved from the last to the first, so
// that, in the same memory, none overwrites one that has not been moved yet.
class Spreading {
public:
    Spreading(const LibraryBlock& block, const Lengths& written, const void* fill, std::size_t size)
        : counts_(block.count), written_(written), fill_(fill), size_(size), rowRank_(block.rank)
    {
        // A row covers all dimensions that are completely written, and the one before them.
        while (rowRank_ > 0 && rowLength_ == rowWritten_) {
            --rowRank_;
            rowLength_ *= counts_[rowRank_];
            rowWritten_ *= written_[rowRank_];
        }
    }

    void run(const char* values, char* block) const
    {
        for (std::size_t row = productOf(counts_, rowRank_); row-- > 0;) {
            std::size_t source = 0;
            const std::size_t moved = isWritten(row, source) ? rowWritten_ : 0;
            char* destination = block + row * rowLength_ * size_;
            if (moved > 0)
                std::memmove(destination, values + source * rowWritten_ * size_, moved * size_);
            fillElements(destination + moved * size_, rowLength_ - moved, fill_, size_);
        }
    }

private:
    // Whether a row of the block has a written part, and the number of that row among the written
    // ones.
    bool isWritten(std::size_t row, std::size_t& source) const
    {
        std::size_t step = 1;
        for (std::size_t i = rowRank_; i-- > 0; row /= counts_[i]) {
            const std::size_t index = row % counts_[i];
            if (index >= written_[i])
                return false;
            source += index * step;
            step *= written_[i];
        }
        return true;
    }

    const std::size_t* counts_;
    const Lengths& written_;
    const void* fill_;
    std::size_t size_;
    std::size_t rowRank_; // dimensions before those of a row
    std::size_t rowLength_ = 1;
    std::size_t rowWritten_ = 1;
};

// Only the block's last element, which the library reads correctly at any position.
int readLastElement(const LibraryBlock& block, const WrittenExtents& needed,
                    const GetVarsCall& getVars, void* value)
{
    Lengths last(block.rank);
    std::transform(needed.begin(), needed.end(), last.begin(), [](hsize_t end) { return end - 1; });
    const Lengths one(block.rank, 1);
    const Vector<std::ptrdiff_t> step(block.rank, 1);
    return getVars(block.ncid, block.varid, last.data(), one.data(), step.data(), value);
}

bool isReadable(int status) { return status == NC_NOERR || status == NC_ERANGE; }

} // namespace

bool isMisreadWhenPartlyWritten(const LibraryBlock& block, const OperationEntry* entry)
{
    const auto isForward = [](std::ptrdiff_t step) { return step > 0; };
    const std::size_t* end = block.count + block.rank;
    if (std::find(block.count, end, std::size_t{0}) != end ||
        !std::all_of(block.stride, block.stride + block.rank, isForward) ||
        productOf(block.count, block.rank) == 1)
        return false;
    const Vector<int> unlimited = unlimitedDimensions(block.ncid, entry);
    for (std::size_t i = 0; i < block.rank; ++i) {
        const bool isUnlimited =
            std::find(unlimited.begin(), unlimited.end(), block.dimids[i]) != unlimited.end();
        if (isUnlimited && (i > 0 || block.stride[i] > 1))
            return true;
    }
    return false;
}

PartlyRead readPartlyWritten(const LibraryBlock& block, const GetVarsCall& getVars,
                             const BlockMemory& memory, const OperationEntry* entry)
{
    const auto readAll = [&] {
        return getVars(block.ncid, block.varid, block.start, block.count, block.stride,
                       memory.values);
    };
    const WrittenExtents needed = extentsOf(block);
    if (needed.empty())
        return {readAll(), false};
    WrittenExtents extents = writtenExtents(block.ncid, block.varid, needed, entry);
    if (isWithin(needed, extents))
        return {readAll(), false};

    // The read of the last element also makes the library write a newly defined variable to the
    // file, so that it has extents.
    const int fillStatus = readLastElement(block, needed, getVars, memory.fill);
    if (extents.empty())
        extents = writtenExtents(block.ncid, block.varid, needed, entry);
    if (!isReadable(fillStatus) || extents.empty() || isWithin(needed, extents)) {
        const int status = readAll(); // which reports best why it refuses the block
        return {isReadable(fillStatus) || status != NC_NOERR ? status : fillStatus, false};
    }

    const Lengths written = writtenCounts(block, extents);
    int status = NC_NOERR;
    if (productOf(written.data(), block.rank) > 0)
        status = getVars(block.ncid, block.varid, block.start, written.data(), block.stride,
                         memory.values);
    if (isReadable(status))
        Spreading(block, written, memory.fill, memory.elementSize)
            .run(memory.values, memory.spread);
    return {status == NC_NOERR ? fillStatus : status, true};
}

} // namespace Ovard::gridio
