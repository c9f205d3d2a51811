// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/chunk_filters.h"

#include <hdf5.h>

#include <algorithm>
#include <stdexcept>

#ifdef GRIDIO_HAS_LIBDEFLATE
#include <libdeflate.h>
#endif
#ifdef GRIDIO_HAS_ZSTD
#include <zstd.h>
#endif
#ifdef GRIDIO_HAS_BLOSC
#include <blosc.h>
#endif
#ifdef GRIDIO_HAS_LZ4
#include <lz4.h>
#endif
#ifdef GRIDIO_HAS_BZIP2
#include <bzlib.h>
#endif
#ifdef GRIDIO_HAS_LIBAEC
extern "C" { // which the header of libaec 1.0 lacks
#include <szlib.h>
}
#endif

namespace testsupport {
namespace {

using namespace Ovard::gridio;

std::string bigEndian(std::uint64_t number, std::size_t bytes)
{
    std::string text(bytes, '\0');
    for (std::size_t i = bytes; i-- > 0; number >>= 8)
        text[i] = static_cast<char>(number & 0xFF);
    return text;
}

std::string littleEndian(std::uint64_t number, std::size_t bytes)
{
    std::string text = bigEndian(number, bytes);
    std::reverse(text.begin(), text.end());
    return text;
}

using Compress = std::string (*)(const std::vector<unsigned>& parameters, const std::string& bytes);

#ifdef GRIDIO_HAS_LIBDEFLATE
std::string compressDeflate(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    libdeflate_compressor* state = libdeflate_alloc_compressor(static_cast<int>(parameters[0]));
    std::string out(libdeflate_zlib_compress_bound(state, bytes.size()), '\0');
    out.resize(libdeflate_zlib_compress(state, bytes.data(), bytes.size(), out.data(), out.size()));
    libdeflate_free_compressor(state);
    return out;
}
#endif

#ifdef GRIDIO_HAS_ZSTD
std::string compressZstd(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    std::string out(ZSTD_compressBound(bytes.size()), '\0');
    out.resize(ZSTD_compress(out.data(), out.size(), bytes.data(), bytes.size(),
                             static_cast<int>(parameters[0])));
    return out;
}
#endif

#ifdef GRIDIO_HAS_BLOSC
std::string compressBlosc(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    static const char* const compressors[] = {"blosclz", "lz4", "lz4hc", "zlib", "zstd"};
    std::string out(bytes.size() + BLOSC_MAX_OVERHEAD, '\0');
    const int size =
        blosc_compress_ctx(static_cast<int>(parameters[4]), static_cast<int>(parameters[5]),
                           parameters[2], bytes.size(), bytes.data(), out.data(), out.size(),
                           compressors[parameters[6] % std::size(compressors)], 0, 1);
    if (size <= 0)
        throw std::runtime_error("blosc_compress_ctx");
    out.resize(static_cast<std::size_t>(size));
    return out;
}
#endif

#ifdef GRIDIO_HAS_LZ4
std::string compressLz4(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    const std::size_t blockSize = parameters[0];
    std::string out = bigEndian(bytes.size(), 8) + bigEndian(blockSize, 4);
    for (std::size_t done = 0; done < bytes.size(); done += blockSize) {
        const std::string block = bytes.substr(done, blockSize);
        const int length = static_cast<int>(block.size());
        std::string packed(static_cast<std::size_t>(LZ4_compressBound(length)), '\0');
        packed.resize(static_cast<std::size_t>(LZ4_compress_default(
            block.data(), packed.data(), length, static_cast<int>(packed.size()))));
        if (packed.size() >= block.size())
            packed = block;
        out += bigEndian(packed.size(), 4) + packed;
    }
    return out;
}
#endif

#ifdef GRIDIO_HAS_BZIP2
std::string compressBzip2(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    std::string source = bytes;
    auto size = static_cast<unsigned>(bytes.size() + bytes.size() / 50 + 700);
    std::string out(size, '\0');
    if (BZ2_bzBuffToBuffCompress(out.data(), &size, source.data(),
                                 static_cast<unsigned>(source.size()),
                                 static_cast<int>(parameters[0]), 0, 0) != BZ_OK)
        throw std::runtime_error("BZ2_bzBuffToBuffCompress");
    out.resize(size);
    return out;
}
#endif

#ifdef GRIDIO_HAS_LIBAEC
std::string compressSzip(const std::vector<unsigned>& parameters, const std::string& bytes)
{
    SZ_com_t settings = {};
    settings.options_mask = static_cast<int>(parameters[0]);
    settings.pixels_per_block = static_cast<int>(parameters[1]);
    settings.bits_per_pixel = static_cast<int>(parameters[2]);
    settings.pixels_per_scanline = static_cast<int>(parameters[3]);
    std::string out(2 * bytes.size() + 1000, '\0');
    std::size_t size = out.size();
    if (SZ_BufftoBuffCompress(out.data(), &size, bytes.data(), bytes.size(), &settings) != SZ_OK)
        throw std::runtime_error("SZ_BufftoBuffCompress");
    out.resize(size);
    return littleEndian(bytes.size(), 4) + out;
}
#endif

struct CodecRow {
    unsigned id;
    Compress compress;
};

const CodecRow rows[] = {
#ifdef GRIDIO_HAS_LIBDEFLATE
    {deflateFilter, compressDeflate},
#endif
#ifdef GRIDIO_HAS_ZSTD
    {zstdFilter, compressZstd},
#endif
#ifdef GRIDIO_HAS_BLOSC
    {bloscFilter, compressBlosc},
#endif
#ifdef GRIDIO_HAS_LZ4
    {lz4Filter, compressLz4},
#endif
#ifdef GRIDIO_HAS_BZIP2
    {bzip2Filter, compressBzip2},
#endif
#ifdef GRIDIO_HAS_LIBAEC
    {szipFilter, compressSzip},
#endif
    {0, nullptr},
};

} // namespace

std::vector<unsigned> testCodecs()
{
    std::vector<unsigned> ids;
    for (const CodecRow& row : rows) {
        if (row.compress != nullptr)
            ids.push_back(row.id);
    }
    return ids;
}

Filter filterFor(unsigned id, std::size_t elementSize)
{
    const auto size = static_cast<unsigned>(elementSize);
    switch (id) {
    case deflateFilter:
        return {id, {4}};
    case shuffleFilter:
        return {id, {size}};
    case szipFilter: // nearest neighbour, raw, least significant byte first
        return {id, {128 | 32 | 8, 8, size * 8, 64}};
    case bzip2Filter:
        return {id, {9}};
    case bloscFilter:
        return {id, {2, 2, size, 0, 5, 1, 1}};
    case lz4Filter:
        return {id, {128}};
    case zstdFilter:
        return {id, {3}};
    default:
        return {id, {}};
    }
}

std::string applyFilters(const std::vector<Filter>& filters, std::string bytes,
                         std::uint32_t skipped)
{
    for (std::size_t i = 0; i < filters.size(); ++i) {
        const Filter& filter = filters[i];
        if ((skipped >> i & 1) != 0)
            continue;
        const auto row = std::find_if(std::begin(rows), std::end(rows), [&](const CodecRow& r) {
            return r.compress != nullptr && r.id == filter.id;
        });
        if (filter.id == shuffleFilter)
            bytes = shuffled(bytes, filter.parameters[0]);
        else if (filter.id == fletcher32Filter)
            bytes += littleEndian(plainFletcher32(bytes), 4);
        else if (row != std::end(rows))
            bytes = row->compress(filter.parameters, bytes);
        else
            throw std::logic_error("no such filter");
    }
    return bytes;
}

std::vector<Filter> filtersOfDataset(std::int64_t dataset)
{
    const hid_t settings = H5Dget_create_plist(dataset);
    std::vector<Filter> filters(static_cast<std::size_t>(H5Pget_nfilters(settings)));
    for (unsigned i = 0; i < filters.size(); ++i) {
        unsigned flags = 0;
        unsigned parameters[16] = {};
        std::size_t count = std::size(parameters);
        filters[i].id = static_cast<unsigned>(
            H5Pget_filter2(settings, i, &flags, &count, parameters, 0, nullptr, nullptr));
        filters[i].parameters.assign(parameters, parameters + count);
    }
    H5Pclose(settings);
    return filters;
}

std::string shuffled(const std::string& bytes, std::size_t elementSize)
{
    const std::size_t count = bytes.size() / elementSize;
    if (elementSize == 1 || count <= 1)
        return bytes;
    std::string planes = bytes;
    for (std::size_t i = 0; i < count; ++i) {
        for (std::size_t b = 0; b < elementSize; ++b)
            planes[b * count + i] = bytes[i * elementSize + b];
    }
    return planes;
}

std::uint32_t plainFletcher32(const std::string& bytes)
{
    std::uint64_t sum = 0;
    std::uint64_t sums = 0;
    for (std::size_t i = 0; i < bytes.size(); i += 2) {
        const auto high = static_cast<unsigned char>(bytes[i]);
        const auto low = static_cast<unsigned char>(i + 1 < bytes.size() ? bytes[i + 1] : '\0');
        sum += static_cast<std::uint64_t>(high * 256 + low);
        sums += sum;
    }
    // Ones' complement: 65535, not 0, unless all numbers are 0.
    const auto folded = [](std::uint64_t s) { return s == 0 ? 0 : (s - 1) % 65535 + 1; };
    return static_cast<std::uint32_t>(folded(sums) << 16 | folded(sum));
}

} // namespace testsupport
