// SPDX-License-Identifier: BSD-3-Clause
#include "tests/properties/chunk_layouts.h"
#include "tests/support/chunk_filters.h"
#include "tests/support/library_file.h"

#include <hdf5.h>

#include <algorithm>
#include <sstream>
#include <stdexcept>

namespace properties {
namespace {

using Ovard::gridio::Filter;
using testsupport::applyFilters;
using testsupport::filterFor;
using testsupport::require;

template <class Result> Result hdf5(Result result)
{
    if (result < 0)
        throw std::runtime_error("HDF5");
    return result;
}

constexpr std::size_t szipBlock = 8; // elements that a chunk has at least

struct Type {
    nc_type external;
    std::size_t size;
    hid_t stored;
    bool isBig;
};

std::vector<Type> allTypes()
{
    return {
        {NC_BYTE, 1, H5T_STD_I8LE, false},     {NC_UBYTE, 1, H5T_STD_U8BE, true},
        {NC_SHORT, 2, H5T_STD_I16LE, false},   {NC_SHORT, 2, H5T_STD_I16BE, true},
        {NC_USHORT, 2, H5T_STD_U16LE, false},  {NC_INT, 4, H5T_STD_I32LE, false},
        {NC_INT, 4, H5T_STD_I32BE, true},      {NC_UINT, 4, H5T_STD_U32LE, false},
        {NC_INT64, 8, H5T_STD_I64LE, false},   {NC_UINT64, 8, H5T_STD_U64BE, true},
        {NC_FLOAT, 4, H5T_IEEE_F32LE, false},  {NC_FLOAT, 4, H5T_IEEE_F32BE, true},
        {NC_DOUBLE, 8, H5T_IEEE_F64LE, false}, {NC_DOUBLE, 8, H5T_IEEE_F64BE, true},
    };
}

// One chunked dataset and its twin, whose chunks have no filters.
class Dataset {
public:
    Dataset(Random& random, hid_t file, const std::string& name)
        : random_(random), type_(random.oneOf(allTypes()))
    {
        const std::size_t rank = random.between(1, random.oneIn(3) ? 6 : 3);
        for (std::size_t i = 0; i < rank; ++i) {
            lengths_.push_back(random.between(1, random.oneIn(3) ? 20 : 6));
            chunk_.push_back(random.between(1, lengths_.back() + 2));
        }
        chooseFilters();
        text_ << name << " type " << type_.external << (type_.isBig ? " big endian" : "")
              << " lengths " << show(lengths_) << "chunks " << show(chunk_) << "filters";
        for (const Filter& filter : filters_)
            text_ << ' ' << filter.id;
        const hid_t dataset = create(file, name, true);
        const hid_t twin = create(file, name + "twin", false);
        filters_ = testsupport::filtersOfDataset(dataset);
        writeChunks(dataset, twin);
        H5Dclose(dataset);
        H5Dclose(twin);
    }

    Layout layout(int ncid, const std::string& name) const
    {
        Layout layout;
        layout.ncid = ncid;
        layout.type = type_.external;
        layout.lengths = lengths_;
        layout.description = text_.str();
        require(nc_inq_varid(ncid, name.c_str(), &layout.varid));
        require(nc_inq_varid(ncid, (name + "twin").c_str(), &layout.twin));
        return layout;
    }

private:
    void chooseFilters()
    {
        const std::vector<unsigned> codecs = testsupport::testCodecs();
        if (random_.oneIn(2))
            filters_.push_back(filterFor(Ovard::gridio::shuffleFilter, type_.size));
        const unsigned codec = random_.oneOf(codecs);
        const bool isTooSmall = codec == Ovard::gridio::szipFilter && productOf(chunk_) < szipBlock;
        if (!random_.oneIn(5) && !isTooSmall)
            filters_.push_back(filterFor(codec, type_.size));
        if (random_.oneIn(3))
            filters_.push_back(filterFor(Ovard::gridio::fletcher32Filter, type_.size));
        if (random_.oneIn(3))
            random_.shuffle(filters_);
        // Szip counts pixels.
        for (std::size_t i = 0; i < filters_.size(); ++i) {
            if (filters_[i].id == Ovard::gridio::szipFilter)
                std::rotate(filters_.begin(), filters_.begin() + static_cast<long>(i),
                            filters_.begin() + static_cast<long>(i) + 1);
        }
        leavesEdges_ = random_.oneIn(5);
    }

    hid_t create(hid_t file, const std::string& name, bool isFiltered)
    {
        const std::vector<hsize_t> lengths(lengths_.begin(), lengths_.end());
        const std::vector<hsize_t> chunk(chunk_.begin(), chunk_.end());
        std::vector<hsize_t> limits = lengths;
        std::fill(limits.begin(), limits.end(), H5S_UNLIMITED);
        const auto rank = static_cast<int>(lengths.size());
        const hid_t space = hdf5(H5Screate_simple(rank, lengths.data(), limits.data()));
        const hid_t settings = hdf5(H5Pcreate(H5P_DATASET_CREATE));
        hdf5(H5Pset_chunk(settings, rank, chunk.data()));
        if (fillsWithOwn_)
            hdf5(H5Pset_fill_value(settings, type_.stored, fill_));
        for (std::size_t i = 0; isFiltered && i < filters_.size(); ++i)
            hdf5(H5Pset_filter(settings, static_cast<H5Z_filter_t>(filters_[i].id),
                               H5Z_FLAG_OPTIONAL, filters_[i].parameters.size(),
                               filters_[i].parameters.data()));
        if (isFiltered && leavesEdges_)
            hdf5(H5Pset_chunk_opts(settings, H5D_CHUNK_DONT_FILTER_PARTIAL_CHUNKS));
        const hid_t dataset = hdf5(H5Dcreate2(file, name.c_str(), type_.stored, space, H5P_DEFAULT,
                                              settings, H5P_DEFAULT));
        H5Pclose(settings);
        H5Sclose(space);
        return dataset;
    }

    void writeChunks(hid_t dataset, hid_t twin)
    {
        Lengths chunkCounts;
        for (std::size_t i = 0; i < lengths_.size(); ++i)
            chunkCounts.push_back((lengths_[i] - 1) / chunk_[i] + 1);
        const std::size_t count = productOf(chunkCounts);
        const std::size_t usual = random_.below(3);
        for (std::size_t i = 0; i < count; ++i) {
            if (random_.oneIn(6))
                continue;
            const Lengths position = indexOf(i, chunkCounts);
            std::vector<hsize_t> origin;
            bool isPartial = false;
            for (std::size_t d = 0; d < position.size(); ++d) {
                origin.push_back(position[d] * chunk_[d]);
                isPartial |= origin.back() + chunk_[d] > lengths_[d];
            }
            const std::string bytes = anyBytes(usual);
            std::uint32_t skipped = 0;
            for (std::size_t f = 0; f < filters_.size(); ++f)
                skipped |= random_.oneIn(8) ? 1U << f : 0;
            const bool isLeft = leavesEdges_ && isPartial;
            const std::string stored = isLeft ? bytes : applyFilters(filters_, bytes, skipped);
            hdf5(H5Dwrite_chunk(dataset, H5P_DEFAULT, isLeft ? 0 : skipped, origin.data(),
                                stored.size(), stored.data()));
            hdf5(H5Dwrite_chunk(twin, H5P_DEFAULT, 0, origin.data(), bytes.size(), bytes.data()));
        }
    }

    std::string anyBytes(std::size_t kind)
    {
        std::string bytes(productOf(chunk_) * type_.size, '\0');
        for (char& byte : bytes)
            byte = static_cast<char>(kind == 0 ? random_.below(256) : random_.below(kind + 1));
        return bytes;
    }

    Random& random_;
    Type type_;
    Lengths lengths_;
    Lengths chunk_;
    std::vector<Filter> filters_;
    bool leavesEdges_ = false;
    const bool fillsWithOwn_ = random_.oneIn(2);
    const unsigned char fill_[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    std::ostringstream text_;
};

} // namespace

LayoutFile makeHdf5File(Random& random, const std::string& path, std::size_t count)
{
    const hid_t creation = hdf5(H5Pcreate(H5P_FILE_CREATE));
    hdf5(H5Pset_link_creation_order(creation, H5P_CRT_ORDER_TRACKED | H5P_CRT_ORDER_INDEXED));
    const hid_t access = hdf5(H5Pcreate(H5P_FILE_ACCESS));
    if (random.oneIn(2)) // other ways to find a chunk
        hdf5(H5Pset_libver_bounds(access, H5F_LIBVER_LATEST, H5F_LIBVER_LATEST));
    const hid_t file = hdf5(H5Fcreate(path.c_str(), H5F_ACC_TRUNC, creation, access));
    std::vector<std::unique_ptr<Dataset>> datasets;
    for (std::size_t i = 0; i < count; ++i)
        datasets.push_back(std::make_unique<Dataset>(random, file, "v" + std::to_string(i)));
    H5Pclose(creation);
    H5Pclose(access);
    hdf5(H5Fclose(file));

    LayoutFile made;
    require(nc_open(path.c_str(), NC_NOWRITE, &made.ncid));
    for (std::size_t i = 0; i < count; ++i)
        made.layouts.push_back(datasets[i]->layout(made.ncid, "v" + std::to_string(i)));
    return made;
}

} // namespace properties
