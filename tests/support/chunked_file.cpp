// SPDX-License-Identifier: BSD-3-Clause
#include "tests/support/chunked_file.h"

#include "tests/support/chunk_filters.h"

#include <hdf5.h>

#include <cstring>
#include <functional>
#include <numeric>
#include <stdexcept>

namespace testsupport {
namespace {

template <class Result> Result hdf5(Result result)
{
    if (result < 0)
        throw std::runtime_error("HDF5");
    return result;
}

std::vector<hsize_t> toHdf5(const std::vector<std::size_t>& lengths)
{
    return {lengths.begin(), lengths.end()};
}

// The bytes of the chunk at that origin; beyond the variable, zeros.
std::string chunkBytes(const ChunkedVariable& variable, const std::vector<hsize_t>& origin)
{
    const auto& lengths = variable.lengths;
    std::string bytes;
    for (std::size_t z = 0; z < variable.chunk[0]; ++z) {
        for (std::size_t y = 0; y < variable.chunk[1]; ++y) {
            for (std::size_t x = 0; x < variable.chunk[2]; ++x) {
                const std::size_t at[] = {origin[0] + z, origin[1] + y, origin[2] + x};
                const bool isInside =
                    at[0] < lengths[0] && at[1] < lengths[1] && at[2] < lengths[2];
                const std::size_t value = (at[0] * lengths[1] + at[1]) * lengths[2] + at[2];
                const int element = isInside ? static_cast<int>(value) : 0;
                char copy[sizeof element];
                std::memcpy(copy, &element, sizeof element);
                bytes.append(copy, sizeof element);
            }
        }
    }
    return bytes;
}

} // namespace

const Ovard::gridio::OperationEntry chunkEntry = {0, "chunked", 0, nullptr};

Ovard::gridio::Block blockAt(std::vector<std::size_t> start, std::vector<std::size_t> count)
{
    using namespace Ovard::gridio;
    return {SizeVector(start.begin(), start.end()), SizeVector(count.begin(), count.end()),
            StrideVector(start.size(), 1)};
}

std::size_t countOf(const std::vector<std::size_t>& lengths)
{
    return std::accumulate(lengths.begin(), lengths.end(), std::size_t{1}, std::multiplies<>());
}

void makeChunked(const std::string& path, const ChunkedVariable& variable, bool isWritten)
{
    const LibraryFile file = LibraryFile::create(path, variable.mode | NC_CLOBBER);
    const char* const names[] = {"z", "y", "x"};
    int dimids[3] = {};
    for (std::size_t i = 0; i < 3; ++i)
        require(nc_def_dim(file.ncid(), names[i],
                           i == 0 && variable.isUnlimited ? NC_UNLIMITED : variable.lengths[i],
                           &dimids[i]));
    int varid = 0;
    require(nc_def_var(file.ncid(), "v", NC_INT, 3, dimids, &varid));
    if (!variable.chunk.empty() && (variable.mode & NC_NETCDF4) != 0) {
        require(nc_def_var_chunking(file.ncid(), varid, NC_CHUNKED, variable.chunk.data()));
        if (variable.deflate >= 0)
            require(nc_def_var_deflate(file.ncid(), varid, 1, 1, variable.deflate));
    }
    require(nc_enddef(file.ncid()));
    if (!isWritten)
        return;
    std::vector<int> values(countOf(variable.lengths));
    std::iota(values.begin(), values.end(), 0);
    const std::size_t start[] = {0, 0, 0};
    require(nc_put_vara_int(file.ncid(), varid, start, variable.lengths.data(), values.data()));
}

void makeFiltered(const std::string& path, const ChunkedVariable& variable,
                  const std::vector<Ovard::gridio::Filter>& filters,
                  void (*damage)(std::string& bytes))
{
    const hid_t creation = hdf5(H5Pcreate(H5P_FILE_CREATE));
    hdf5(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    const hid_t file = hdf5(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, creation, H5P_DEFAULT));
    const hid_t space = hdf5(H5Screate_simple(3, toHdf5(variable.lengths).data(), nullptr));
    const hid_t settings = hdf5(H5Pcreate(H5P_DATASET_CREATE));
    hdf5(H5Pset_chunk(settings, 3, toHdf5(variable.chunk).data()));
    for (const Ovard::gridio::Filter& filter : filters)
        hdf5(H5Pset_filter(settings, static_cast<H5Z_filter_t>(filter.id), H5Z_FLAG_OPTIONAL,
                           filter.parameters.size(), filter.parameters.data()));
    const hid_t dataset =
        hdf5(H5Dcreate2(file, "v", H5T_STD_I32LE, space, H5P_DEFAULT, settings, H5P_DEFAULT));
    const auto adapted = filtersOfDataset(dataset);
    std::vector<hsize_t> origin(3);
    for (origin[0] = 0; origin[0] < variable.lengths[0]; origin[0] += variable.chunk[0]) {
        for (origin[1] = 0; origin[1] < variable.lengths[1]; origin[1] += variable.chunk[1]) {
            for (origin[2] = 0; origin[2] < variable.lengths[2]; origin[2] += variable.chunk[2]) {
                std::string bytes = applyFilters(adapted, chunkBytes(variable, origin));
                if (damage != nullptr)
                    damage(bytes);
                hdf5(H5Dwrite_chunk(dataset, H5P_DEFAULT, 0, origin.data(), bytes.size(),
                                    bytes.data()));
            }
        }
    }
    for (const hid_t id : {dataset, settings, space, creation})
        H5Idec_ref(id);
    hdf5(H5Fclose(file));
}

} // namespace testsupport
