// SPDX-License-Identifier: BSD-3-Clause
// Writes of blocks that use every core. Chunks of compressed netCDF-4 variables are packed here,
// several at a time, and written raw by HDF5, which also writes the elements outside whole chunks.
//
// HDF5 has one chunk cache for a dataset, by however many identifiers it is open: writing a raw
// chunk drops the chunk that is cached, and reading one writes a cached one first. The netCDF
// library's own records of a variable do not depend on its values, except for the lengths of
// unlimited dimensions: if they grow, the library writes the block's last element first.
#pragma once

#include "data/elements/blocks.h"

namespace Ovard::gridio {

enum class Writes { whereFaster, wherePossible };

// Writes a block of values of the stored type in native byte order. Returns false, with at most
// that last element written, for writes that are left to the library: everything that readChunked
// leaves to it, strides, filters other than deflate, shuffle and checksums, chunks whose edges are
// not filtered, blocks without a whole chunk, and everything if the user has chosen one thread.
// Raises the library's failures and the host's interrupt; part of the block may then be written.
bool writeChunked(Variable& variable, const Block& block, const void* values,
                  Writes writes = Writes::whereFaster);

} // namespace Ovard::gridio
