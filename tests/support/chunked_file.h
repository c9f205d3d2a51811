// SPDX-License-Identifier: BSD-3-Clause
// Small chunked variables for the tests of src/chunks, made with the libraries alone.
#pragma once

#include "chunks/codecs/codec.h"
#include "data/elements/blocks.h"
#include "tests/support/library_file.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace testsupport {

// The operation name in tests of src/chunks, which their errors contain.
extern const Ovard::gridio::OperationEntry chunkEntry;

// A block without steps.
Ovard::gridio::Block blockAt(std::vector<std::size_t> start, std::vector<std::size_t> count);

// A file of one variable "v" of three dimensions "z", "y", "x", of NC_INT unless said otherwise,
// with the values 0, 1, 2 ...
struct ChunkedVariable {
    std::vector<std::size_t> lengths{8, 60, 70};
    std::vector<std::size_t> chunk{2, 30, 40}; // empty: contiguous
    int deflate = 4;                           // negative: none
    bool isUnlimited = false;                  // "z"
    int mode = 0x1000;                         // of nc_create, NC_NETCDF4
};

std::size_t countOf(const std::vector<std::size_t>& lengths);

// Created and closed. values: as many as there are elements, counting up, if written.
void makeChunked(const std::string& path, const ChunkedVariable& variable, bool isWritten = true);

// By HDF5: the same variable, with these filters, applied chunk by chunk. damage is called for the
// bytes of each chunk before they are written.
void makeFiltered(const std::string& path, const ChunkedVariable& variable,
                  const std::vector<Ovard::gridio::Filter>& filters,
                  void (*damage)(std::string& bytes) = nullptr);

} // namespace testsupport
