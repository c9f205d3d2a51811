// SPDX-License-Identifier: BSD-3-Clause
// Reads of blocks that use every core: of chunked variables of netCDF-4 files, whose chunks are
// read raw by HDF5 and unpacked here, several at a time; and of all others, decoded here. The same
// values and the same errors as the library's own read of the stored type.
#pragma once

#include "cf/decoding.h"
#include "data/elements/blocks.h"

namespace Ovard::gridio {

// Where a block is read to: all its elements one after the other, in the library's order. As they
// are stored, in native byte order, without a decoder.
struct ReadTarget {
    void* values = nullptr;
    const cf::Decoder* decoder = nullptr;
};

// Reads a block of any variable of numbers or characters, by the fastest way. Raises the library's
// failures as those of the variable's entry, NC_EBADTYPE for other types, and the host's interrupt.
void readValues(Variable& variable, const Block& block, const ReadTarget& target);

// The two ways.

// Which reads readChunked takes on.
enum class Reads { whereFaster, wherePossible };

// False, with nothing of use read, for what is left to the library: anything but chunks of numbers
// or characters, filters that are unknown here, blocks that the library is to refuse, reads that
// fail, since it says best why, those that it makes faster, and, if the user has chosen one thread,
// all that it can read. What the library cannot read for
// want of a filter is not left to it: where that fails, NC_EHDFERR is raised. Elements of chunks
// that were never written, of variables without filling, are zero.
bool readChunked(Variable& variable, const Block& block, const ReadTarget& target,
                 Reads reads = Reads::whereFaster);

// By the library, some MiB at a time.
void readInSlabs(Variable& variable, const Block& block, const ReadTarget& target);

} // namespace Ovard::gridio
