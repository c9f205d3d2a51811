// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/codecs/codec.h"
#include "chunks/codecs/factories.h"

#include <algorithm>
#include <array>

namespace Ovard::gridio {
namespace {

struct Codec {
    unsigned filter;
    const char* name;
    std::unique_ptr<Decompressor> (*makeDecompressor)(const Filter&);
};

// A last row that is no codec keeps the table from being empty.
const Codec codecs[] = {
#ifdef GRIDIO_HAS_LIBDEFLATE
    {deflateFilter, "deflate", makeDeflateDecompressor},
#endif
#ifdef GRIDIO_HAS_LIBAEC
    {szipFilter, "szip", makeSzipDecompressor},
#endif
#ifdef GRIDIO_HAS_BZIP2
    {bzip2Filter, "bzip2", makeBzip2Decompressor},
#endif
#ifdef GRIDIO_HAS_BLOSC
    {bloscFilter, "blosc", makeBloscDecompressor},
#endif
#ifdef GRIDIO_HAS_LZ4
    {lz4Filter, "lz4", makeLz4Decompressor},
#endif
#ifdef GRIDIO_HAS_ZSTD
    {zstdFilter, "zstd", makeZstdDecompressor},
#endif
    {0, nullptr, nullptr},
};

const Codec* findCodec(unsigned filter)
{
    const auto found =
        std::find_if(std::begin(codecs), std::end(codecs), [filter](const Codec& codec) {
            return codec.name != nullptr && codec.filter == filter;
        });
    return found == std::end(codecs) ? nullptr : found;
}

} // namespace

bool isCodec(unsigned filter) { return findCodec(filter) != nullptr; }

std::unique_ptr<Decompressor> makeDecompressor(const Filter& filter)
{
    return findCodec(filter.id)->makeDecompressor(filter);
}

std::unique_ptr<Compressor> makeCompressor([[maybe_unused]] const Filter& filter)
{
#ifdef GRIDIO_HAS_LIBDEFLATE
    if (filter.id == deflateFilter)
        return makeDeflateCompressor(filter);
#endif
    return nullptr;
}

std::vector<const char*> codecNames()
{
    std::vector<const char*> names;
    for (const Codec& codec : codecs) {
        if (codec.name != nullptr)
            names.push_back(codec.name);
    }
    return names;
}

} // namespace Ovard::gridio
