// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/codecs/codec.h"
#include "chunks/codecs/factories.h"

#include <algorithm>

namespace Ovard::gridio {
namespace {

struct Codec {
    unsigned filter;
    const char* name;
    std::unique_ptr<Decompressor> (*makeDecompressor)(const Filter&);
};

// Those of the libraries that gridio was built with: perhaps none.
const std::vector<Codec>& codecs()
{
    static const std::vector<Codec> table = {
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
    };
    return table;
}

std::vector<Codec>::const_iterator findCodec(unsigned filter)
{
    return std::find_if(codecs().begin(), codecs().end(),
                        [filter](const Codec& codec) { return codec.filter == filter; });
}

} // namespace

bool isCodec(unsigned filter) { return findCodec(filter) != codecs().end(); }

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
    for (const Codec& codec : codecs())
        names.push_back(codec.name);
    return names;
}

} // namespace Ovard::gridio
