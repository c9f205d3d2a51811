// SPDX-License-Identifier: BSD-3-Clause
// Slabs on their way from files to what uses their values. A slab is passed on after the read of
// the next one has begun, perhaps from another file: it is used while other threads unpack that.
#pragma once

#include "chunks/byte_buffer.h"
#include "chunks/chunk_reads.h"
#include "chunks/chunk_walk.h"

#include <functional>
#include <memory>

namespace Ovard::gridio {

class SlabQueue {
public:
    // Finishes the read, and uses the values. What the read needs may be kept in the function,
    // which is destroyed afterwards.
    using End = std::function<void(PendingRead& read, const Spans& spans, double* values)>;

    // Reads a block of a variable, which has elements, slab by slab, to doubles. Spans are places
    // in the block. Calls the ends of earlier slabs. Raises the library's failures and the host's
    // interrupt.
    void read(Variable& variable, const Block& block, const cf::Decoder& decoder, const End& end);

    // Calls the ends of all slabs that are left.
    void drain();

private:
    struct Slab {
        ByteBuffer values;
        Spans spans;
        End end;
        std::unique_ptr<PendingRead> read; // the first to be destroyed; null if there is no slab
    };

    void begin(Variable& variable, const Block& slab, const cf::Decoder& decoder,
               const Spans& spans, const End& end);

    static void finish(Slab& slab);

    Slab slabs_[2]; // one that is read, and one that is used
    std::size_t next_ = 0;
};

} // namespace Ovard::gridio
