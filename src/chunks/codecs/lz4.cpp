// SPDX-License-Identifier: BSD-3-Clause
// A chunk begins with its size and that of its blocks, most significant byte first. Each block
// follows its compressed size, and is stored as it is if that did not make it smaller.
#ifdef GRIDIO_HAS_LZ4
#include "chunks/codecs/factories.h"

#include <lz4.h>

#include <algorithm>
#include <climits>
#include <cstdint>
#include <cstring>

namespace Ovard::gridio {
namespace {

class Lz4Decompressor : public Decompressor {
public:
    bool decompress(const unsigned char* data, std::size_t size, unsigned char* destination,
                    std::size_t destinationSize) override
    {
        Input input{data, size};
        const std::uint64_t announced = input.number(8);
        const std::uint64_t blockSize = input.number(4);
        if (input.isExhausted || announced != destinationSize || blockSize == 0)
            return false;
        for (std::size_t done = 0; done < destinationSize;) {
            const std::size_t wanted = std::min<std::size_t>(destinationSize - done, blockSize);
            const std::uint64_t stored = input.number(4);
            const unsigned char* block = input.bytes(stored);
            if (input.isExhausted || !expand(block, stored, destination + done, wanted))
                return false;
            done += wanted;
        }
        return true;
    }

private:
    struct Input {
        const unsigned char* data;
        std::size_t size;
        bool isExhausted = false;

        const unsigned char* bytes(std::uint64_t count)
        {
            isExhausted |= count > size;
            if (isExhausted)
                return nullptr;
            const unsigned char* begin = data;
            data += count;
            size -= count;
            return begin;
        }
        std::uint64_t number(std::size_t bytesOfNumber)
        {
            const unsigned char* begin = bytes(bytesOfNumber);
            std::uint64_t number = 0;
            for (std::size_t i = 0; begin != nullptr && i < bytesOfNumber; ++i)
                number = number << 8 | begin[i];
            return number;
        }
    };

    static bool expand(const unsigned char* block, std::uint64_t size, unsigned char* destination,
                       std::size_t wanted)
    {
        if (size == wanted) {
            std::memcpy(destination, block, wanted);
            return true;
        }
        if (size > INT_MAX || wanted > INT_MAX)
            return false;
        const int written =
            LZ4_decompress_safe(static_cast<const char*>(static_cast<const void*>(block)),
                                static_cast<char*>(static_cast<void*>(destination)),
                                static_cast<int>(size), static_cast<int>(wanted));
        return written >= 0 && static_cast<std::size_t>(written) == wanted;
    }
};

} // namespace

std::unique_ptr<Decompressor> makeLz4Decompressor(const Filter&)
{
    return std::make_unique<Lz4Decompressor>();
}

} // namespace Ovard::gridio
#endif
