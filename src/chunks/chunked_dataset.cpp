// SPDX-License-Identifier: BSD-3-Clause
#include "chunks/chunked_dataset.h"

#include "check_status.h"
#include "library/quiet_hdf5.h"

#include <boost/container/small_vector.hpp>

#include <algorithm>
#include <array>
#include <cstring>

namespace Ovard::gridio {
namespace {

constexpr std::uint32_t allFilters = 0xFFFFFFFF;
template <class T> using Lengths = boost::container::small_vector<T, 8>;

struct ElementOrder {
    std::size_t size;
    bool isSwapped;
};

bool isEqual(hid_t a, hid_t b) { return H5Tequal(a, b) > 0; }

// The type as which the library stores characters. Other types would be converted.
bool isCharacter(hid_t type)
{
    const Hdf5Id character(H5Tcopy(H5T_C_S1));
    return H5Tset_strpad(character.get(), H5T_STR_NULLTERM) >= 0 && isEqual(type, character.get());
}

// HDF5's type identifiers are variables, which are set when HDF5 is initialised.
std::optional<ElementOrder> elementOrder(nc_type external, hid_t stored)
{
    struct Row {
        nc_type external;
        std::size_t size;
        hid_t littleEndian;
        hid_t bigEndian;
    };
    const Row rows[] = {
        {NC_BYTE, 1, H5T_STD_I8LE, H5T_STD_I8BE},
        {NC_UBYTE, 1, H5T_STD_U8LE, H5T_STD_U8BE},
        {NC_SHORT, 2, H5T_STD_I16LE, H5T_STD_I16BE},
        {NC_USHORT, 2, H5T_STD_U16LE, H5T_STD_U16BE},
        {NC_INT, 4, H5T_STD_I32LE, H5T_STD_I32BE},
        {NC_UINT, 4, H5T_STD_U32LE, H5T_STD_U32BE},
        {NC_INT64, 8, H5T_STD_I64LE, H5T_STD_I64BE},
        {NC_UINT64, 8, H5T_STD_U64LE, H5T_STD_U64BE},
        {NC_FLOAT, 4, H5T_IEEE_F32LE, H5T_IEEE_F32BE},
        {NC_DOUBLE, 8, H5T_IEEE_F64LE, H5T_IEEE_F64BE},
    };
    if (external == NC_CHAR && isCharacter(stored))
        return ElementOrder{1, false};
    for (const Row& row : rows) {
        if (row.external != external)
            continue;
        const bool isLittle = isEqual(stored, row.littleEndian);
        if (!isLittle && !isEqual(stored, row.bigEndian))
            return std::nullopt;
        constexpr bool isMachineLittle = __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__;
        return ElementOrder{row.size, row.size > 1 && isLittle != isMachineLittle};
    }
    return std::nullopt;
}

std::optional<std::vector<Filter>> filtersOf(hid_t settings)
{
    const int count = H5Pget_nfilters(settings);
    if (count < 0)
        return std::nullopt;
    std::vector<Filter> filters(static_cast<std::size_t>(count));
    for (unsigned i = 0; i < filters.size(); ++i) {
        unsigned flags = 0;
        unsigned configuration = 0;
        std::array<unsigned, 64> parameters{};
        std::size_t parameterCount = parameters.size();
        const H5Z_filter_t id = H5Pget_filter2(settings, i, &flags, &parameterCount,
                                               parameters.data(), 0, nullptr, &configuration);
        if (id < 0 || parameterCount > parameters.size())
            return std::nullopt;
        filters[i].id = static_cast<unsigned>(id);
        filters[i].parameters.assign(parameters.begin(), parameters.begin() + parameterCount);
    }
    return filters;
}

// The value that HDF5 fills missing chunks with, in the byte order of the file. None if HDF5 fails.
// With filling off HDF5 leaves the memory unchanged; here it is zero.
std::optional<cf::StoredValue> fillValueOf(hid_t settings, hid_t stored)
{
    cf::StoredValue value{};
    H5D_fill_time_t time = H5D_FILL_TIME_ERROR;
    H5D_fill_value_t definition = H5D_FILL_VALUE_ERROR;
    if (H5Pget_fill_time(settings, &time) < 0 || H5Pfill_value_defined(settings, &definition) < 0)
        return std::nullopt;
    if (time == H5D_FILL_TIME_NEVER || definition == H5D_FILL_VALUE_UNDEFINED)
        return value;
    if (H5Pget_fill_value(settings, stored, value.data()) < 0)
        return std::nullopt;
    return value;
}

// The chunk's size in bytes; none if it is larger than HDF5 allows.
std::optional<std::size_t> chunkSizeOf(const SizeVector& lengths, std::size_t elementSize)
{
    constexpr std::size_t limit = 0xFFFFFFFF;
    std::size_t size = elementSize;
    for (const std::size_t length : lengths) {
        if (length == 0 || size > limit / length)
            return std::nullopt;
        size *= length;
    }
    return size;
}

// Whether the last call of HDF5 failed in one of these functions itself, not in one that it called.
bool failsAsForMissingChunk()
{
    bool result = false;
    const auto compare = [](unsigned, const H5E_error2_t* failure, void* found) {
        *static_cast<bool*>(found) =
            std::strcmp(failure->func_name, "H5D__get_chunk_storage_size") == 0 ||
            std::strcmp(failure->func_name, "H5D__chunk_direct_read") == 0;
        return herr_t{1}; // the innermost only
    };
    static_cast<void>(H5Ewalk2(H5E_DEFAULT, H5E_WALK_UPWARD, compare, &result));
    return result;
}

SizeVector toSizes(const Lengths<hsize_t>& lengths)
{
    return SizeVector(lengths.begin(), lengths.end());
}

Lengths<hsize_t> toHdf5(const SizeVector& lengths)
{
    return Lengths<hsize_t>(lengths.begin(), lengths.end());
}

} // namespace

std::optional<ChunkedDataset> ChunkedDataset::open(Variable& variable)
{
    const QuietHdf5 quiet;
    const std::size_t rank = variable.rank();
    Hdf5Id dataset =
        openDataset(variable.ncid(), variable.varid(), static_cast<int>(rank), variable.entry());
    if (!dataset)
        return std::nullopt;
    const Hdf5Id settings(H5Dget_create_plist(dataset.get()));
    const Hdf5Id type(H5Dget_type(dataset.get()));
    Lengths<hsize_t> chunk(rank);
    if (H5Pget_layout(settings.get()) != H5D_CHUNKED ||
        H5Pget_chunk(settings.get(), static_cast<int>(rank), chunk.data()) !=
            static_cast<int>(rank))
        return std::nullopt;
    const auto order = elementOrder(variable.externalType(), type.get());
    auto filters = filtersOf(settings.get());
    const SizeVector chunkLengths = toSizes(chunk);
    const auto size = order ? chunkSizeOf(chunkLengths, order->size) : std::nullopt;
    auto fillValue = fillValueOf(settings.get(), type.get());
    unsigned options = 0;
    if (!filters || !size || !fillValue || H5Pget_chunk_opts(settings.get(), &options) < 0)
        return std::nullopt;
    auto pipeline = FilterPipeline::make(std::move(*filters), *size, order->size);
    if (!pipeline)
        return std::nullopt;

    ChunkedDataset opened(std::move(dataset), std::move(*pipeline), variable.entry());
    opened.chunkLengths_ = chunkLengths;
    opened.isSwapped_ = order->isSwapped;
    opened.fillValue_ = opened.inNativeOrder(*fillValue);
    opened.leavesEdgesUnfiltered_ = (options & H5D_CHUNK_DONT_FILTER_PARTIAL_CHUNKS) != 0;
    opened.updateExtents();
    return opened;
}

void ChunkedDataset::updateExtents()
{
    const Hdf5Id space(H5Dget_space(dataset_.get()));
    Lengths<hsize_t> extents(chunkLengths_.size());
    Lengths<hsize_t> limits(chunkLengths_.size());
    if (H5Sget_simple_extent_dims(space.get(), extents.data(), limits.data()) < 0)
        raiseLibraryFailure(NC_EHDFERR, entry_);
    extents_ = toSizes(extents);
    isUnlimited_.assign(limits.size(), false);
    for (std::size_t i = 0; i < limits.size(); ++i)
        isUnlimited_[i] = limits[i] == H5S_UNLIMITED;
}

std::size_t ChunkedDataset::storedSize(const SizeVector& origin) const
{
    const QuietHdf5 quiet;
    hsize_t size = 0;
    if (H5Dget_chunk_storage_size(dataset_.get(), toHdf5(origin).data(), &size) < 0)
        requireMissing(origin);
    return size;
}

StoredChunk ChunkedDataset::read(const SizeVector& origin, std::size_t size,
                                 unsigned char* bytes) const
{
    const QuietHdf5 quiet;
    StoredChunk chunk = {size, 0};
#if H5_VERSION_GE(2, 0, 0)
    const herr_t status = H5Dread_chunk2(dataset_.get(), H5P_DEFAULT, toHdf5(origin).data(),
                                         &chunk.skipped, bytes, &size);
#else
    const herr_t status =
        H5Dread_chunk(dataset_.get(), H5P_DEFAULT, toHdf5(origin).data(), &chunk.skipped, bytes);
#endif
    if (status < 0) {
        requireMissing(origin);
        return {};
    }
    if (size != chunk.size)
        throw DamagedChunk();
    if (leavesEdgesUnfiltered_ && isEdge(origin))
        chunk.skipped = allFilters;
    return chunk;
}

// HDF5 fails for missing chunks, too, but in the function that does the work, not further down as
// in all other cases. An element of a missing chunk is the fill value.
void ChunkedDataset::requireMissing(const SizeVector& origin) const
{
    if (!failsAsForMissingChunk())
        throw DamagedChunk();
    const Lengths<hsize_t> one(origin.size(), 1);
    const Hdf5Id type(H5Dget_type(dataset_.get()));
    const Hdf5Id file(H5Dget_space(dataset_.get()));
    const Hdf5Id memory(H5Screate(H5S_SCALAR));
    cf::StoredValue value{};
    if (H5Sselect_hyperslab(file.get(), H5S_SELECT_SET, toHdf5(origin).data(), nullptr, one.data(),
                            nullptr) < 0 ||
        H5Dread(dataset_.get(), type.get(), memory.get(), file.get(), H5P_DEFAULT, value.data()) <
            0 ||
        inNativeOrder(value) != fillValue_)
        throw DamagedChunk();
}

cf::StoredValue ChunkedDataset::inNativeOrder(cf::StoredValue value) const
{
    if (isSwapped_)
        std::reverse(value.begin(), value.begin() + static_cast<long>(elementSize()));
    return value;
}

void ChunkedDataset::write(const SizeVector& origin, const unsigned char* bytes,
                           std::size_t size) const
{
    const QuietHdf5 quiet;
    if (H5Dwrite_chunk(dataset_.get(), H5P_DEFAULT, 0, toHdf5(origin).data(), size, bytes) < 0)
        raiseLibraryFailure(NC_EHDFERR, entry_);
}

void ChunkedDataset::write(const Block& block, const void* values) const
{
    const QuietHdf5 quiet;
    const Hdf5Id stored(H5Dget_type(dataset_.get()));
    // The type of characters would become a number.
    const Hdf5Id native(isSwapped_ ? H5Tget_native_type(stored.get(), H5T_DIR_DEFAULT)
                                   : H5Tcopy(stored.get()));
    const auto counts = toHdf5(block.count);
    const Hdf5Id memory(H5Screate_simple(static_cast<int>(counts.size()), counts.data(), nullptr));
    const Hdf5Id file(H5Dget_space(dataset_.get()));
    if (H5Sselect_hyperslab(file.get(), H5S_SELECT_SET, toHdf5(block.start).data(), nullptr,
                            counts.data(), nullptr) < 0 ||
        H5Dwrite(dataset_.get(), native.get(), memory.get(), file.get(), H5P_DEFAULT, values) < 0)
        raiseLibraryFailure(NC_EHDFERR, entry_);
}

bool ChunkedDataset::isEdge(const SizeVector& origin) const
{
    for (std::size_t i = 0; i < origin.size(); ++i) {
        if (extents_[i] - origin[i] < chunkLengths_[i])
            return true;
    }
    return false;
}

} // namespace Ovard::gridio
