// SPDX-License-Identifier: BSD-3-Clause
// Writes of blocks that use every core: of compressed variables of netCDF-4 files, whose chunks are
// packed here, several at a time, and written raw by HDF5, which also writes what is not in whole
// chunks.
//
// HDF5 has one chunk cache for a dataset, by however many identifiers it is open: writing a raw
// chunk drops the chunk that is cached, and reading one writes a cached one first. What the netCDF
// library knows of a variable does not change with its values, but for the lengths of unlimited
// dimensions: where they are to grow, it writes the block's last element first.
#pragma once

#include "data/elements/blocks.h"

namespace Ovard::gridio {

enum class Writes { whereFaster, wherePossible };

// Writes a block of values of the stored type in native byte order. False, with nothing written but
// that last element, for what is left to the library: all that readChunked leaves to it, strides,
// filters other than deflate, shuffle and checksums, chunks whose edges are not filtered, blocks
// without a whole chunk, and everything if the user has chosen one thread. Raises the library's
// failures and the host's interrupt: part of the block is then written.
bool writeChunked(Variable& variable, const Block& block, const void* values,
                  Writes writes = Writes::whereFaster);

} // namespace Ovard::gridio
