// SPDX-License-Identifier: BSD-3-Clause
#include "library/guards/fixed_length_strings.h"

#include "library/hdf5_file.h"
#include "library/storage_model.h"

#include <netcdf.h>

#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

using Extents = std::vector<hsize_t>;

bool isFixedLength(const Hdf5Id& dataset)
{
    const Hdf5Id type(H5Dget_type(dataset.get()));
    return type && H5Tget_class(type.get()) == H5T_STRING && H5Tis_variable_str(type.get()) == 0;
}

// The status with which the library refuses a block. The product of its lengths is what remains to
// be read.
int refusalOf(const Extents& start, const Extents& count, const std::ptrdiff_t* stride,
              const Extents& extents)
{
    for (std::size_t i = 0; i < extents.size(); ++i) {
        if (stride[i] <= 0)
            return NC_ESTRIDE;
        if (start[i] > extents[i] || (start[i] == extents[i] && count[i] > 0))
            return NC_EINVALCOORDS;
        const auto step = static_cast<hsize_t>(stride[i]);
        if (count[i] > 0 && (count[i] - 1) > (extents[i] - 1 - start[i]) / step)
            return NC_EEDGE;
    }
    return NC_NOERR;
}

// Duplicates of the texts, as the library's own strings are: released by nc_free_string.
int duplicate(const std::vector<char>& texts, std::size_t length, char** values)
{
    for (std::size_t i = 0; (i + 1) * length <= texts.size(); ++i) {
        const char* text = texts.data() + i * length;
        const std::size_t used = strnlen(text, length);
        values[i] = static_cast<char*>(std::malloc(used + 1));
        if (values[i] == nullptr)
            return NC_ENOMEM;
        std::memcpy(values[i], text, used);
        values[i][used] = '\0';
    }
    return NC_NOERR;
}

} // namespace

bool hasFixedLengthStrings(int ncid, int varid, std::size_t rank, const OperationEntry* entry)
{
    if (!isStoredInHdf5(ncid))
        return false;
    NotedFile* file = findNotedFile(ncid);
    const std::pair<int, int> key{ncid, varid};
    if (file != nullptr && file->haveFixedLength.count(key) != 0)
        return file->haveFixedLength[key];
    const Hdf5Id dataset = openDataset(ncid, varid, static_cast<int>(rank), entry);
    if (!dataset) // not yet in the file: the library made it
        return false;
    const bool result = isFixedLength(dataset);
    if (file != nullptr)
        file->haveFixedLength[key] = result;
    return result;
}

int getFixedLengthStrings(int ncid, int varid, const std::size_t* start, const std::size_t* count,
                          const std::ptrdiff_t* stride, std::size_t rank, char** values,
                          const OperationEntry* entry)
{
    const Hdf5Id dataset = openDataset(ncid, varid, static_cast<int>(rank), entry);
    const QuietHdf5 quiet;
    const Hdf5Id space(H5Dget_space(dataset.get()));
    const Hdf5Id type(H5Dget_type(dataset.get()));
    Extents extents(rank);
    const Extents first(start, start + rank);
    const Extents lengths(count, count + rank);
    const Extents steps(stride, stride + rank);
    H5Sget_simple_extent_dims(space.get(), extents.data(), nullptr);
    if (const int refusal = refusalOf(first, lengths, stride, extents))
        return refusal;

    std::size_t total = 1;
    for (const hsize_t length : lengths)
        total *= length;
    if (total == 0)
        return NC_NOERR;
    if (rank > 0 && H5Sselect_hyperslab(space.get(), H5S_SELECT_SET, first.data(), steps.data(),
                                        lengths.data(), nullptr) < 0)
        return NC_EHDFERR;
    const std::size_t length = H5Tget_size(type.get());
    std::vector<char> texts(total * length);
    const Hdf5Id memory(rank > 0 ? H5Screate_simple(static_cast<int>(rank), lengths.data(), nullptr)
                                 : H5Screate(H5S_SCALAR));
    if (H5Dread(dataset.get(), type.get(), memory.get(), space.get(), H5P_DEFAULT, texts.data()) <
        0)
        return NC_EHDFERR;
    return duplicate(texts, length, values);
}

} // namespace Ovard::gridio
