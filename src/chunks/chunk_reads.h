// SPDX-License-Identifier: BSD-3-Clause
// Reads of blocks that use every core. Chunks of netCDF-4 variables are read raw by HDF5 and
// unpacked here, several at a time; other variables are read by the library and decoded here.
// Values and errors are those of the library's own read of the stored type.
#pragma once

#include "cf/decoding.h"
#include "data/elements/blocks.h"

#include <memory>

namespace Ovard::gridio {

// The destination of a block: all its elements contiguously, in the library's order; without a
// decoder as they are stored, in native byte order.
struct ReadTarget {
    void* values = nullptr;
    const cf::Decoder* decoder = nullptr;
};

// Reads a block of any variable of numbers or characters, in the fastest way. Raises the library's
// failures as those of the variable's entry, NC_EBADTYPE for other types, and the host's interrupt.
void readValues(Variable& variable, const Block& block, const ReadTarget& target);

class ChunkedRead;

// The same in two steps, between which the caller can do other work while other threads go on with
// the read. Both raise what readValues raises.
class PendingRead {
public:
    // The variable and the target must exist until the read is finished or destroyed.
    PendingRead(Variable& variable, const Block& block, const ReadTarget& target);
    ~PendingRead();
    PendingRead(const PendingRead&) = delete;
    PendingRead& operator=(const PendingRead&) = delete;

    void finish();

private:
    Variable& variable_;
    const Block block_;
    const ReadTarget target_;
    std::unique_ptr<ChunkedRead> chunked_; // null once the values are there
};

// The two ways.

// Which reads readChunked accepts.
enum class Reads { whereFaster, wherePossible };

// Returns false, with the destination undefined, for reads that are left to the library: anything
// but chunks of numbers or characters, filters that are unknown here, blocks that the library must
// refuse, reads that fail, since the library reports the best reason, reads that it makes faster,
// and, if the user has chosen one thread, all that it can read. Variables that the library cannot
// read because it lacks a filter are not left to it: if such a read fails, NC_EHDFERR is raised.
// Elements of unwritten chunks of variables without filling are zero.
bool readChunked(Variable& variable, const Block& block, const ReadTarget& target,
                 Reads reads = Reads::whereFaster);

// By the library, some MiB at a time.
void readInSlabs(Variable& variable, const Block& block, const ReadTarget& target);

} // namespace Ovard::gridio
