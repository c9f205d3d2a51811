// SPDX-License-Identifier: BSD-3-Clause
// A chunk is a buffer of Blosc 1, which says itself how it was compressed and shuffled.
#ifdef GRIDIO_HAS_BLOSC
#include "chunks/codecs/factories.h"

#include <blosc.h>

namespace Ovard::gridio {
namespace {

class BloscDecompressor : public Decompressor {
public:
    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        std::size_t announced = 0;
        if (blosc_cbuffer_validate(data, size, &announced) != 0 || announced != destinationSize)
            return false;
        // In this thread alone.
        const int written = blosc_decompress_ctx(data, destination, destinationSize, 1);
        return written >= 0 && static_cast<std::size_t>(written) == destinationSize;
    }
};

} // namespace

std::unique_ptr<Decompressor> makeBloscDecompressor(const Filter&)
{
    return std::make_unique<BloscDecompressor>();
}

} // namespace Ovard::gridio
#endif
