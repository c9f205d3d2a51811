// SPDX-License-Identifier: BSD-3-Clause
// Compressed maps of 1000 by 1000 in chunks of 1 by 500 by 500, shuffled and deflated at level 4,
// read and written by the library, which works in one thread.
#include "bench/native_work.h"

#include <hdf5.h>

#ifdef GRIDIO_HAS_ZSTD
#include <zstd.h>
#endif

#include <cmath>
#include <cstdint>
#include <vector>

namespace bench {
namespace {

constexpr std::size_t mapSize = 1000000;
constexpr std::size_t mapsRead = 20;
constexpr unsigned zstdFilter = 32015;

// A smooth field with noise. The last two bytes of a float are random, and sums are exact.
double fieldAt(std::size_t i, std::uint32_t random)
{
    const double x = static_cast<double>(i % 1000) / 200;
    const double y = static_cast<double>(i / 1000 % 1000) / 300;
    return 300 + 20 * std::sin(x) * std::cos(y) + static_cast<double>(random >> 8) / 16777216;
}

template <class T> std::vector<T> field(std::size_t maps)
{
    std::vector<T> values(maps * mapSize);
    std::uint32_t random = 1;
    for (std::size_t i = 0; i < values.size(); ++i) {
        random = random * 1664525 + 1013904223;
        const double value = fieldAt(i, random);
        values[i] = static_cast<T>(sizeof(T) == 2 ? (value - 300) * 100 : value);
    }
    return values;
}

template <class T> constexpr nc_type typeOf() { return sizeof(T) == 2 ? NC_SHORT : NC_FLOAT; }

template <class T>
void write(const std::string& path, const std::vector<T>& values, bool isZstd = false)
{
    int ncid = 0;
    check(nc_create(path.c_str(), NC_NETCDF4 | NC_CLOBBER, &ncid));
    const std::size_t lengths[] = {values.size() / mapSize, 1000, 1000};
    int dimids[3];
    for (int i = 0; i < 3; ++i)
        check(nc_def_dim(ncid, std::string(1, "zyx"[i]).c_str(), lengths[i], &dimids[i]));
    int varid = 0;
    check(nc_def_var(ncid, "v", typeOf<T>(), 3, dimids, &varid));
    const std::size_t chunk[] = {1, 500, 500};
    check(nc_def_var_chunking(ncid, varid, NC_CHUNKED, chunk));
    const unsigned level = 3;
    check(nc_def_var_deflate(ncid, varid, 1, isZstd ? 0 : 1, 4));
    if (isZstd)
        check(nc_def_var_filter(ncid, varid, zstdFilter, 1, &level));
    check(nc_enddef(ncid));
    check(nc_put_var(ncid, varid, values.data()));
    check(nc_close(ncid));
}

template <class T> Done make(const Job& job, bool isZstd)
{
    const Stopwatch watch;
    write(job.path, field<T>(job.count), isZstd);
    return finish(watch.seconds(), 0);
}

Done makeFloats(const Job& job) { return make<float>(job, false); }
Done makeShorts(const Job& job) { return make<short>(job, false); }

template <class T> Done writeMaps(const Job& job)
{
    const std::vector<T> values = field<T>(job.count);
    const Stopwatch watch;
    write(job.path, values);
    return finish(watch.seconds(), 0);
}

template <class T> Done read(const Job& job)
{
    const File file(job.path);
    const Stopwatch watch;
    auto values = fresh<T>(job.count * mapSize);
    check(nc_get_var(file.id(), 0, values.get()));
    return finish(watch.seconds(), std::move(values), job.count * mapSize);
}

// One map a call, each into memory of its own; the sum of their first values.
Done readSingleMaps(const Job& job)
{
    const File file(job.path);
    double sum = 0;
    const Stopwatch watch;
    for (std::size_t i = 0; i < mapsRead; ++i) {
        const auto values = fresh<float>(mapSize);
        const std::size_t start[] = {i * 37 % job.count, 0, 0};
        const std::size_t count[] = {1, 1000, 1000};
        check(nc_get_vara(file.id(), 0, start, count, values.get()));
        sum += static_cast<double>(values.get()[0]);
    }
    return finish(watch.seconds(), sum);
}

#ifdef GRIDIO_HAS_ZSTD
// What the plug-in of the filter does, which few machines have.
std::size_t zstd(unsigned flags, std::size_t, const unsigned parameters[], std::size_t size,
                 std::size_t* bufferSize, void** buffer)
{
    const bool isReading = (flags & H5Z_FLAG_REVERSE) != 0;
    const std::size_t bound =
        isReading ? ZSTD_getFrameContentSize(*buffer, size) : ZSTD_compressBound(size);
    void* result = std::malloc(bound);
    const std::size_t made =
        isReading ? ZSTD_decompress(result, bound, *buffer, size)
                  : ZSTD_compress(result, bound, *buffer, size, static_cast<int>(parameters[0]));
    if (ZSTD_isError(made) != 0) {
        std::free(result);
        return 0;
    }
    std::free(*buffer);
    *buffer = result;
    *bufferSize = bound;
    return made;
}

Done makeZstd(const Job& job) { return make<float>(job, true); }

void registerZstd()
{
    H5Z_class2_t filter = {};
    filter.version = H5Z_CLASS_T_VERS;
    filter.id = zstdFilter;
    filter.encoder_present = filter.decoder_present = 1;
    filter.name = "zstd";
    filter.filter = zstd;
    if (H5Zregister(&filter) < 0)
        throw std::runtime_error("HDF5 does not take the zstd filter");
}
#endif

} // namespace

Works chunkWorks()
{
    Works works = {
        {"make_chunks_float", makeFloats},       {"make_chunks_short", makeShorts},
        {"read_chunks_float", read<float>},      {"read_chunks_short", read<short>},
        {"read_chunks_maps", readSingleMaps},    {"write_chunks_float", writeMaps<float>},
        {"write_chunks_short", writeMaps<short>}};
#ifdef GRIDIO_HAS_ZSTD
    registerZstd();
    works["make_chunks_zstd"] = makeZstd;
    works["read_chunks_zstd"] = read<float>;
#endif
    return works;
}

} // namespace bench
