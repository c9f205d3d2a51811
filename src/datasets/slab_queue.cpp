// SPDX-License-Identifier: BSD-3-Clause
#include "datasets/slab_queue.h"

#include "chunks/block_indices.h"
#include "chunks/interruption.h"
#include "chunks/slabs.h"
#include "data/elements/shapes.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

// Values of a slab. It consists of whole chunks, so it may hold more.
constexpr std::size_t slabElements = (std::size_t{8} << 20) / sizeof(double);

} // namespace

void SlabQueue::read(Variable& variable, const Block& block, const cf::Decoder& decoder,
                     const End& end)
{
    const auto indices = blockIndices(variable, block);
    if (!indices || variable.rank() == 0) {
        Spans whole(block.count.size());
        for (std::size_t i = 0; i < whole.size(); ++i)
            whole[i].count = block.count[i];
        begin(variable, block, decoder, whole, end);
        return;
    }
    const SizeVector lengths = slabLengths(*indices, chunkLengths(variable), slabElements);
    Interruption interruption;
    for (ChunkWalk walk(*indices, lengths); !walk.isDone(); walk.next()) {
        interruption.check();
        begin(variable, slabOf(*indices, walk.spans()), decoder, walk.spans(), end);
    }
}

void SlabQueue::begin(Variable& variable, const Block& slab, const cf::Decoder& decoder,
                      const Spans& spans, const End& end)
{
    Slab& own = slabs_[next_];
    const std::size_t count = std::max<std::size_t>(productOf(slab.count), 1);
    void* values = own.values.reserve(count * sizeof(double));
    own.read = std::make_unique<PendingRead>(variable, slab, ReadTarget{values, &decoder});
    own.spans = spans;
    own.end = end;
    next_ = 1 - next_;
    finish(slabs_[next_]);
}

void SlabQueue::drain()
{
    finish(slabs_[next_]);
    finish(slabs_[1 - next_]);
}

// The slab is gone also when this fails. The read is destroyed first: until then its threads may
// use what the function keeps.
void SlabQueue::finish(Slab& slab)
{
    const End end = std::move(slab.end);
    const std::unique_ptr<PendingRead> read = std::move(slab.read);
    if (read != nullptr)
        end(*read, slab.spans, reinterpret_cast<double*>(slab.values.data()));
}

} // namespace Ovard::gridio
