// SPDX-License-Identifier: BSD-3-Clause
// Deflate in the format of zlib, by libdeflate.
#ifdef GRIDIO_HAS_LIBDEFLATE
#include "chunks/codecs/factories.h"

#include <libdeflate.h>

#include <algorithm>
#include <new>

namespace Ovard::gridio {
namespace {

constexpr unsigned highestLevel = 9; // of zlib

struct Free {
    void operator()(libdeflate_decompressor* state) const { libdeflate_free_decompressor(state); }
    void operator()(libdeflate_compressor* state) const { libdeflate_free_compressor(state); }
};

template <class State> std::unique_ptr<State, Free> owned(State* state)
{
    if (state == nullptr)
        throw std::bad_alloc();
    return std::unique_ptr<State, Free>(state);
}

class DeflateDecompressor : public Decompressor {
public:
    // Bytes behind the compressed ones are ignored, as HDF5 does.
    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        return libdeflate_zlib_decompress(state_.get(), data, size, destination, destinationSize,
                                          nullptr) == LIBDEFLATE_SUCCESS;
    }

private:
    std::unique_ptr<libdeflate_decompressor, Free> state_ = owned(libdeflate_alloc_decompressor());
};

class DeflateCompressor : public Compressor {
public:
    explicit DeflateCompressor(unsigned level)
        : state_(owned(libdeflate_alloc_compressor(static_cast<int>(level))))
    {
    }

    std::size_t bound(std::size_t size) override
    {
        return libdeflate_zlib_compress_bound(state_.get(), size);
    }
    std::size_t compress(const unsigned char* data, std::size_t size,
                         unsigned char* destination) override
    {
        return libdeflate_zlib_compress(state_.get(), data, size, destination, bound(size));
    }

private:
    std::unique_ptr<libdeflate_compressor, Free> state_;
};

} // namespace

std::unique_ptr<Decompressor> makeDeflateDecompressor(const Filter&)
{
    return std::make_unique<DeflateDecompressor>();
}

std::unique_ptr<Compressor> makeDeflateCompressor(const Filter& filter)
{
    if (filter.parameters.size() != 1 || filter.parameters[0] > highestLevel)
        return nullptr;
    return std::make_unique<DeflateCompressor>(filter.parameters[0]);
}

} // namespace Ovard::gridio
#endif
