// SPDX-License-Identifier: BSD-3-Clause
// A chunk is a frame of Zstandard.
#ifdef GRIDIO_HAS_ZSTD
#include "chunks/codecs/factories.h"

#include <zstd.h>

#include <new>

namespace Ovard::gridio {
namespace {

struct Free {
    void operator()(ZSTD_DCtx* state) const { ZSTD_freeDCtx(state); }
};

class ZstdDecompressor : public Decompressor {
public:
    ZstdDecompressor()
    {
        if (state_ == nullptr)
            throw std::bad_alloc();
    }

    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        const std::size_t written =
            ZSTD_decompressDCtx(state_.get(), destination, destinationSize, data, size);
        return ZSTD_isError(written) == 0 && written == destinationSize;
    }

private:
    std::unique_ptr<ZSTD_DCtx, Free> state_{ZSTD_createDCtx()};
};

} // namespace

std::unique_ptr<Decompressor> makeZstdDecompressor(const Filter&)
{
    return std::make_unique<ZstdDecompressor>();
}

} // namespace Ovard::gridio
#endif
