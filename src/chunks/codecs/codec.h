// SPDX-License-Identifier: BSD-3-Clause
// The compression methods of chunks, by their numbers in HDF5's registry of filters. Each uses its
// own library, which the build looks for; without it, the number is unknown here.
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

// Not thread-safe.
class Decompressor {
public:
    Decompressor() = default;
    virtual ~Decompressor() = default;
    Decompressor(const Decompressor&) = delete;
    Decompressor& operator=(const Decompressor&) = delete;

    // False unless the data, which may be damaged in any way, decompress to exactly this many
    // bytes. Never writes more than these, and never takes more memory than in proportion to both
    // sizes.
    virtual bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                            std::size_t destinationSize) = 0;
};

// Not thread-safe.
class Compressor {
public:
    Compressor() = default;
    virtual ~Compressor() = default;
    Compressor(const Compressor&) = delete;
    Compressor& operator=(const Compressor&) = delete;

    // The largest compressed size of size bytes.
    virtual std::size_t bound(std::size_t size) = 0;

    // Returns the compressed size. destination has space for the bound.
    virtual std::size_t compress(const unsigned char* data, std::size_t size,
                                 unsigned char* destination) = 0;
};

bool isCodec(unsigned filter);

// Null for parameters with which no data can have been written. The filter must be a codec.
std::unique_ptr<Decompressor> makeDecompressor(const Filter& filter);

// Null for a filter that is not supported for writing; only deflate is.
std::unique_ptr<Compressor> makeCompressor(const Filter& filter);

// Codecs of this build, for reports: "deflate zstd lz4".
std::vector<const char*> codecNames();

} // namespace Ovard::gridio
