// SPDX-License-Identifier: BSD-3-Clause
// Reads by the library in pieces, which other threads decode while the next one is read. The user
// can interrupt between pieces.
#include "check_status.h"
#include "chunks/block_indices.h"
#include "chunks/chunk_reads.h"
#include "chunks/interruption.h"
#include "chunks/result_block.h"
#include "chunks/slabs.h"
#include "chunks/thread_count.h"
#include "chunks/worker_pool.h"
#include "data/elements/shapes.h"

#include <algorithm>
#include <vector>

namespace Ovard::gridio {
namespace {

// Bytes of stored values. They should still be in the cache when they are decoded.
constexpr std::size_t decodedSlabSize = std::size_t{1} << 18;
constexpr std::size_t plainSlabSize = std::size_t{16} << 20;

// Bytes of stored values for each thread: with fewer, starting a thread takes longer than it saves.
constexpr std::size_t threadShare = std::size_t{1} << 20;

class SlabReader {
public:
    SlabReader(Variable& variable, const ElementType& element, const BlockIndices& block,
               const SizeVector& blockLengths, const ReadTarget& target)
        : variable_(variable), element_(element), block_(block), blockLengths_(blockLengths),
          result_(target.values, element.size, target.decoder),
          lengths_(slabLengths(block, chunkLengths(variable),
                               (target.decoder == nullptr ? plainSlabSize : decodedSlabSize) /
                                   element.size)),
          threads_(std::min(threadCount(), countOf(block) * element.size / threadShare + 1)),
          slots_(slotCount(threads_))
    {
    }

    void run()
    {
        WorkerPool pool(
            threads_, slots_.size(), [this](std::size_t slot, std::size_t) { place(slots_[slot]); },
            [this] { interruption_.check(); });
        std::size_t current = 0;
        for (ChunkWalk walk(block_, lengths_); !walk.isDone(); walk.next()) {
            interruption_.check();
            if (readDirectly(walk.spans()))
                continue;
            pool.finish(current);
            Slot& slot = slots_[current];
            slot.spans = walk.spans();
            read(slot.spans, slot.bytes.reserve(countOf(slot.spans) * element_.size));
            pool.submit(current);
            current = (current + 1) % slots_.size();
        }
        pool.finishAll();
    }

private:
    struct Slot {
        Spans spans;
        ByteBuffer bytes;
    };

    static std::size_t slotCount(std::size_t threads) { return threads == 1 ? 1 : 2 * threads + 2; }

    // The position of the slab in the result.
    RunWalk runsOf(const Spans& spans) const
    {
        Spans plain = spans;
        SizeVector counts(spans.size());
        for (std::size_t i = 0; i < spans.size(); ++i) {
            counts[i] = spans[i].count;
            plain[i].first = 0;
            plain[i].step = 1;
        }
        return RunWalk(plain, counts, blockLengths_);
    }

    void read(const Spans& spans, void* destination)
    {
        checkStatus(readBlock(variable_, element_, slabOf(block_, spans), destination),
                    variable_.entry());
    }

    bool readDirectly(const Spans& spans)
    {
        const RunWalk runs = runsOf(spans);
        if (result_.isDecoded() || !runs.isOneRun(countOf(spans)))
            return false;
        read(spans, result_.element(runs.target()));
        return true;
    }

    void place(const Slot& slot) const
    {
        const ChunkElements elements = {slot.bytes.data(), 0};
        runsOf(slot.spans)
            .forEach(
                [&](std::size_t first, std::size_t step, std::size_t count, std::size_t target) {
                    result_.put(elements, false, first, step, count, target);
                });
    }

    Variable& variable_;
    const ElementType& element_;
    const BlockIndices& block_;
    const SizeVector& blockLengths_;
    const ResultBlock result_;
    const SizeVector lengths_;
    const std::size_t threads_;
    std::vector<Slot> slots_;
    Interruption interruption_;
};

// A scalar, an empty block, or a block that the library must refuse.
void readAtOnce(Variable& variable, const ElementType& element, const Block& block,
                const ReadTarget& target)
{
    const std::size_t count = productOf(block.count);
    ByteBuffer stored;
    void* destination = target.values;
    if (target.decoder != nullptr)
        destination = stored.reserve(std::max<std::size_t>(count * element.size, 1));
    checkStatus(readBlock(variable, element, block, destination), variable.entry());
    if (target.decoder != nullptr)
        target.decoder->decode(destination, count, target.values);
}

} // namespace

void readInSlabs(Variable& variable, const Block& block, const ReadTarget& target)
{
    const ElementType* element = findExternalType(variable.externalType());
    if (element == nullptr)
        raiseLibraryFailure(NC_EBADTYPE, variable.entry());
    const auto indices = blockIndices(variable, block);
    if (indices && variable.rank() > 0)
        SlabReader(variable, *element, *indices, block.count, target).run();
    else
        readAtOnce(variable, *element, block, target);
}

} // namespace Ovard::gridio
