// SPDX-License-Identifier: BSD-3-Clause
#include "library/hdf5_file.h"

#include "check_status.h"
#include "library/quiet_hdf5.h"
#include "library/storage_model.h"

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

namespace Ovard::gridio {
namespace {

// By the file's own identifier.
std::map<int, NotedFile> notedFiles;

std::vector<hid_t> openHdf5Files()
{
    const ssize_t count = H5Fget_obj_count(static_cast<hid_t>(H5F_OBJ_ALL), H5F_OBJ_FILE);
    std::vector<hid_t> ids(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    if (!ids.empty()) {
        const ssize_t given =
            H5Fget_obj_ids(static_cast<hid_t>(H5F_OBJ_ALL), H5F_OBJ_FILE, ids.size(), ids.data());
        ids.resize(static_cast<std::size_t>(std::max<ssize_t>(given, 0)));
    }
    return ids;
}

std::string nameOf(hid_t file)
{
    const ssize_t length = H5Fget_name(file, nullptr, 0);
    std::string name(static_cast<std::size_t>(std::max<ssize_t>(length, 0)) + 1, '\0');
    H5Fget_name(file, name.data(), name.size());
    name.pop_back();
    return name;
}

std::string pathOf(int ncid, const OperationEntry* entry)
{
    std::size_t length = 0;
    checkStatus(nc_inq_path(ncid, &length, nullptr), entry);
    std::string path(length + 1, '\0');
    checkStatus(nc_inq_path(ncid, nullptr, path.data()), entry);
    path.pop_back();
    return path;
}

// For a file that was opened before it could be noted. If several have its path, none of them is
// certain.
hid_t findByPath(int ncid, const OperationEntry* entry)
{
    const std::string path = pathOf(ncid, entry);
    hid_t found = H5I_INVALID_HID;
    for (const hid_t file : openHdf5Files()) {
        if (nameOf(file) != path)
            continue;
        if (found != H5I_INVALID_HID)
            return H5I_INVALID_HID;
        found = file;
    }
    return found;
}

std::string groupPrefix(int ncid, const OperationEntry* entry)
{
    std::size_t length = 0;
    checkStatus(nc_inq_grpname_len(ncid, &length), entry);
    std::string name(length + 1, '\0');
    checkStatus(nc_inq_grpname_full(ncid, nullptr, name.data()), entry);
    name.pop_back();
    return name == "/" ? name : name + '/';
}

// A variable that is named like a dimension of its group but is not its coordinate variable is
// stored under another name, since the dimension needs a dataset of its own.
std::string datasetPath(int ncid, int varid, hid_t file, const OperationEntry* entry)
{
    char name[NC_MAX_NAME + 1] = "";
    checkStatus(nc_inq_var(ncid, varid, name, nullptr, nullptr, nullptr, nullptr), entry);
    const std::string group = groupPrefix(ncid, entry);
    const std::string other = group + "_nc4_non_coord_" + name;
    return H5Lexists(file, other.c_str(), H5P_DEFAULT) > 0 ? other : group + name;
}

bool reaches(const WrittenExtents& extents, const WrittenExtents& needed)
{
    return std::equal(extents.begin(), extents.end(), needed.begin(), needed.end(),
                      std::greater_equal<>());
}

} // namespace

Hdf5Id::~Hdf5Id()
{
    if (id_ >= 0)
        H5Idec_ref(id_);
}

void noteOpenedFile(int ncid) noexcept
try {
    if (!isStoredInHdf5(ncid))
        return;
    // HDF5 counts its identifiers upwards and uses none again: the newest is the largest.
    const std::vector<hid_t> files = openHdf5Files();
    const auto newest = std::max_element(files.begin(), files.end());
    if (newest != files.end())
        notedFiles[fileIdOf(ncid)] = {*newest, false, {}, {}};
} catch (const std::bad_alloc&) {
    forgetFile(ncid);
}

void forgetFile(int ncid) { notedFiles.erase(fileIdOf(ncid)); }

NotedFile* findNotedFile(int ncid)
{
    const auto found = notedFiles.find(fileIdOf(ncid));
    return found != notedFiles.end() && H5Iis_valid(found->second.hdf5) > 0 ? &found->second
                                                                            : nullptr;
}

hid_t hdf5File(int ncid, const OperationEntry* entry)
{
    if (const NotedFile* noted = findNotedFile(ncid))
        return noted->hdf5;
    return isStoredInHdf5(ncid) ? findByPath(ncid, entry) : H5I_INVALID_HID;
}

Hdf5Id openDataset(int ncid, int varid, int rank, const OperationEntry* entry)
{
    const QuietHdf5 quiet;
    const hid_t file = hdf5File(ncid, entry);
    if (file < 0)
        return {};
    const std::string path = datasetPath(ncid, varid, file, entry);
    Hdf5Id dataset(H5Dopen2(file, path.c_str(), H5P_DEFAULT));
    if (!dataset)
        return {};
    const Hdf5Id space(H5Dget_space(dataset.get()));
    return H5Sget_simple_extent_ndims(space.get()) == rank ? std::move(dataset) : Hdf5Id();
}

WrittenExtents writtenExtents(int ncid, int varid, const WrittenExtents& needed,
                              const OperationEntry* entry)
{
    NotedFile* file = findNotedFile(ncid);
    WrittenExtents* known = file == nullptr ? nullptr : &file->extents[{ncid, varid}];
    if (known != nullptr && reaches(*known, needed))
        return *known;

    const Hdf5Id dataset = openDataset(ncid, varid, static_cast<int>(needed.size()), entry);
    if (!dataset)
        return {};
    const Hdf5Id space(H5Dget_space(dataset.get()));
    WrittenExtents extents(needed.size());
    H5Sget_simple_extent_dims(space.get(), extents.data(), nullptr);
    if (known != nullptr)
        *known = extents;
    return extents;
}

} // namespace Ovard::gridio
