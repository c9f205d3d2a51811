// SPDX-License-Identifier: BSD-3-Clause
// Szip by libaec. A chunk begins with its size, least significant byte first.
#ifdef GRIDIO_HAS_LIBAEC
#include "chunks/codecs/factories.h"

extern "C" { // which the header of libaec 1.0 lacks
#include <szlib.h>
}

namespace Ovard::gridio {
namespace {

constexpr std::size_t parameterCount = 4; // options, pixels in a block, bits, pixels in a line

class SzipDecompressor : public Decompressor {
public:
    explicit SzipDecompressor(const std::vector<unsigned>& parameters)
    {
        settings_.options_mask = static_cast<int>(parameters[0]);
        settings_.pixels_per_block = static_cast<int>(parameters[1]);
        settings_.bits_per_pixel = static_cast<int>(parameters[2]);
        settings_.pixels_per_scanline = static_cast<int>(parameters[3]);
    }

    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        if (size < sizeBytes)
            return false;
        std::size_t announced = 0;
        for (std::size_t i = sizeBytes; i-- > 0;)
            announced = announced << 8 | data[i];
        if (announced != destinationSize)
            return false;
        std::size_t written = destinationSize;
        const int status = SZ_BufftoBuffDecompress(destination, &written, data + sizeBytes,
                                                   size - sizeBytes, &settings_);
        // SZ_MEM_ERROR is no reason to report that memory ran out: libaec also gives it for damage
        // that leaves half an element to write.
        return status == SZ_OK && written == destinationSize;
    }

private:
    static constexpr std::size_t sizeBytes = 4;

    SZ_com_t settings_ = {};
};

bool isSane(const std::vector<unsigned>& parameters)
{
    return parameters.size() == parameterCount && parameters[1] >= 2 && parameters[1] <= 32 &&
           parameters[1] % 2 == 0 && parameters[2] >= 1 && parameters[2] <= 64 &&
           parameters[3] >= 1 && parameters[3] <= 128 * parameters[1];
}

} // namespace

std::unique_ptr<Decompressor> makeSzipDecompressor(const Filter& filter)
{
    return isSane(filter.parameters) ? std::make_unique<SzipDecompressor>(filter.parameters)
                                     : nullptr;
}

} // namespace Ovard::gridio
#endif
