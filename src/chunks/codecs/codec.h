// SPDX-License-Identifier: BSD-3-Clause
// The compressions that chunks are stored with, by their numbers in HDF5's registry of filters.
// Each stands on a library of its own, for which the build looks; without it, its number is unknown
// here.
#pragma once

#include <cstddef>
#include <memory>
#include <vector>

namespace Ovard::gridio {

constexpr unsigned deflateFilter = 1;
constexpr unsigned shuffleFilter = 2;
constexpr unsigned fletcher32Filter = 3;
constexpr unsigned szipFilter = 4;
constexpr unsigned bzip2Filter = 307;
constexpr unsigned bloscFilter = 32001;
constexpr unsigned lz4Filter = 32004;
constexpr unsigned zstdFilter = 32015;

// One filter of a variable, with its parameters in the file ("client data").
struct Filter {
    unsigned id = 0;
    std::vector<unsigned> parameters;
};

// For one thread at a time.
class Decompressor {
public:
    Decompressor() = default;
    virtual ~Decompressor() = default;
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;

    // False unless the data, which may be damaged in any way, are decompressed to exactly this many
    // bytes. No more than these is written, and no more memory is taken than in proportion to both.
    virtual bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                            std::size_t destinationSize) = 0;
};

// For one thread at a time.
class Compressor {
public:
    Compressor() = default;
    virtual ~Compressor() = default;
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    // The most bytes that size bytes are compressed to.
    virtual std::size_t bound(std::size_t size) = 0;

    // Returns how many bytes the data were compressed to. destination has memory for the bound.
    virtual std::size_t compress(const unsigned char* data, std::size_t size,
                                 unsigned char* destination) = 0;
};

bool isCodec(unsigned filter);

// Null for parameters that no data can have been written with. The filter is a codec.
std::unique_ptr<Decompressor> makeDecompressor(const Filter& filter);

// Null for a filter that is not written here. The only one is deflate.
std::unique_ptr<Compressor> makeCompressor(const Filter& filter);

// Codecs of this build: "deflate zstd lz4", for those who want to know.
std::vector<const char*> codecNames();

} // namespace Ovard::gridio
