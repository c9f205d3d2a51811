// SPDX-License-Identifier: BSD-3-Clause
// A chunk is a stream of bzip2.
#ifdef GRIDIO_HAS_BZIP2
#include "chunks/codecs/factories.h"

#include <bzlib.h>

#include <climits>
#include <new>

namespace Ovard::gridio {
namespace {

class Bzip2Decompressor : public Decompressor {
public:
    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        if (size > UINT_MAX || destinationSize > UINT_MAX)
            return false;
        auto written = static_cast<unsigned>(destinationSize);
        // The library wants to be able to write to what it only reads.
        void* source = const_cast<unsigned char*>(data);
        const int status = BZ2_bzBuffToBuffDecompress(
            static_cast<char*>(static_cast<void*>(destination)), &written,
            static_cast<char*>(source), static_cast<unsigned>(size), 0, 0);
        if (status == BZ_MEM_ERROR)
            throw std::bad_alloc();
        return status == BZ_OK && written == destinationSize;
    }
};

} // namespace

std::unique_ptr<Decompressor> makeBzip2Decompressor(const Filter&)
{
    return std::make_unique<Bzip2Decompressor>();
}

} // namespace Ovard::gridio
#endif
