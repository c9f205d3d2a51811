// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunk_reads.h"

#include "check_status.h"
#include "chunks/block_indices.h"
#include "chunks/chunk_reader.h"
#include "chunks/library_verdict.h"
#include "chunks/thread_count.h"
#include "chunks/work_sizes.h"
#include "data/elements/shapes.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// The value that the library returns for elements beyond the written part of a variable.
cf::StoredValue unwrittenValue(const Variable& variable)
{
    cf::StoredValue value{};
    int isOff = 0; // ignored: the library returns fill values nevertheless
    checkStatus(nc_inq_var_fill(variable.ncid(), variable.varid(), &isOff, value.data()),
                variable.entry());
    return value;
}

// Fills the part of the block beyond the written extents, dimension by dimension.
void fillUnwritten(const BlockIndices& written, const SizeVector& lengths,
                   const cf::StoredValue& value, const ResultBlock& result)
{
    Interruption interruption;
    for (std::size_t i = 0; i < lengths.size(); ++i) {
        if (written[i].count == lengths[i])
            continue;
        Spans spans(lengths.size());
        SizeVector counts(lengths.size());
        for (std::size_t d = 0; d < lengths.size(); ++d) {
            const std::size_t first = d == i ? written[d].count : 0;
            counts[d] = (d < i ? written[d].count : lengths[d]) - first;
            spans[d] = {0, counts[d], 1, first};
        }
        if (productOf(counts) == 0)
            continue;
        RunWalk(spans, counts, lengths)
            .forEach([&](std::size_t, std::size_t, std::size_t count, std::size_t target) {
                result.fill(value, count, target);
                interruption.check();
            });
    }
}

// Measured: the size at which one thread takes as long as the library, although our reads take some
// 8 microseconds longer to start: with one chunk and deflate 8 KiB of values, without filters 128
// KiB.
constexpr std::size_t smallestBlock = std::size_t{8} << 10;
constexpr std::size_t smallestPlainBlock = std::size_t{128} << 10;

// A block that covers less than half of its chunks may be followed by reads of the same chunks,
// which the library then has in its cache, if they fit.
bool isLikelyCached(const Variable& variable, const ChunkedDataset& dataset,
                    const BlockIndices& block)
{
    const std::size_t unpacked = chunksMet(block, dataset.chunkLengths()) * dataset.chunkSize();
    std::size_t cacheSize = 0;
    checkStatus(
        nc_get_var_chunk_cache(variable.ncid(), variable.varid(), &cacheSize, nullptr, nullptr),
        variable.entry());
    return unpacked <= cacheSize && countOf(block) * dataset.elementSize() < unpacked / 2;
}

bool isFaster(const Variable& variable, const ChunkedDataset& dataset, const BlockIndices& block)
{
    return dataset.chunkSize() <= memoryBound && !isLikelyCached(variable, dataset, block) &&
           (!dataset.pipeline().isEmpty() ||
            countOf(block) * dataset.elementSize() >= smallestPlainBlock);
}

// The part of the block that is in the file.
BlockIndices writtenPart(const BlockIndices& block, const SizeVector& extents)
{
    BlockIndices written(block.size());
    for (std::size_t i = 0; i < block.size(); ++i)
        written[i] = {block[i].start, block[i].countBelow(extents[i]), block[i].step};
    return written;
}

} // namespace

// A read that is not left to the library.
class ChunkedRead {
public:
    ChunkedRead(Variable& variable, ChunkedDataset dataset, const BlockIndices& block,
                const SizeVector& lengths, const ResultBlock& result)
        : variable_(variable), dataset_(std::move(dataset)),
          written_(writtenPart(block, dataset_.extents())), lengths_(lengths), result_(result)
    {
    }

    // Both throw DamagedChunk.
    void begin(Caller caller)
    {
        if (countOf(written_) > 0)
            reader_.emplace(dataset_, written_, lengths_, result_, caller).begin();
    }

    void finish()
    {
        if (reader_)
            reader_->finish();
        fillUnwritten(written_, lengths_, unwrittenValue(variable_), result_);
    }

private:
    Variable& variable_;
    const ChunkedDataset dataset_;
    const BlockIndices written_;
    const SizeVector lengths_;
    const ResultBlock result_;
    std::optional<ChunkReader> reader_;
};

namespace {

bool canLibraryRead(Variable& variable) { return readStatus(variable) != NC_ENOFILTER; }

// Null for reads that are left to the library.
std::unique_ptr<ChunkedRead> openChunkedRead(Variable& variable, const Block& block,
                                             const ReadTarget& target, Reads reads)
{
    const ElementType* element = findExternalType(variable.externalType());
    if (variable.storageModel() != NC_FORMATX_NC_HDF5 || variable.rank() == 0 || element == nullptr)
        return nullptr;
    variable.requireAccessibleValues();
    const auto indices = blockIndices(variable, block);
    if (!indices)
        return nullptr;
    const int status = readStatus(variable);
    const bool canLibrary = status != NC_ENOFILTER;
    const bool isChoice = canLibrary && reads == Reads::whereFaster;
    if ((canLibrary && status != NC_NOERR) ||
        (isChoice && (isLibraryChosen() || countOf(*indices) * element->size < smallestBlock)))
        return nullptr;
    auto dataset = ChunkedDataset::open(variable);
    if (!dataset || (isChoice && !isFaster(variable, *dataset, *indices)))
        return nullptr;
    return std::make_unique<ChunkedRead>(variable, std::move(*dataset), *indices, block.count,
                                         ResultBlock(target.values, element->size, target.decoder));
}

// Does a step of a chunked read. Returns false if a chunk is damaged and the library can report it.
template <class Step> bool reachesEnd(Variable& variable, Step step)
{
    try {
        step();
    } catch (const DamagedChunk&) {
        if (canLibraryRead(variable))
            return false;
        raiseLibraryFailure(NC_EHDFERR, variable.entry());
    }
    return true;
}

} // namespace

void readValues(Variable& variable, const Block& block, const ReadTarget& target)
{
    if (!readChunked(variable, block, target))
        readInSlabs(variable, block, target);
}

bool readChunked(Variable& variable, const Block& block, const ReadTarget& target, Reads reads)
{
    const auto read = openChunkedRead(variable, block, target, reads);
    return read != nullptr && reachesEnd(variable, [&] {
               read->begin(Caller::waits);
               read->finish();
           });
}

PendingRead::PendingRead(Variable& variable, const Block& block, const ReadTarget& target)
    : variable_(variable), block_(block), target_(target),
      chunked_(openChunkedRead(variable, block, target, Reads::whereFaster))
{
    if (chunked_ != nullptr &&
        reachesEnd(variable, [this] { chunked_->begin(Caller::hasOtherWork); }))
        return;
    chunked_.reset();
    readInSlabs(variable_, block_, target_);
}

PendingRead::~PendingRead() = default;

void PendingRead::finish()
{
    if (chunked_ == nullptr)
        return;
    const bool isRead = reachesEnd(variable_, [this] { chunked_->finish(); });
    chunked_.reset();
    if (!isRead)
        readInSlabs(variable_, block_, target_);
}

} // namespace Ovard::gridio
