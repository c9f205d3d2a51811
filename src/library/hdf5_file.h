// SPDX-License-Identifier: BSD-3-Clause
// Access to HDF5: the objects behind a netCDF-4 file that the netCDF library has open, through the
// library's own handle. A file is never opened a second time: its path may name another file by
// now, and HDF5 1.10.8 crashes on string types of a file that is open twice.
#pragma once

#include "library/quiet_hdf5.h"
#include "operation_entry.h"

#include <hdf5.h>

#include <map>
#include <utility>
#include <vector>

namespace Ovard::gridio {

// An HDF5 identifier of our own, released at the end of its scope: the netCDF library cannot close
// a file of which another identifier is open. May hold none.
class Hdf5Id {
public:
    Hdf5Id() = default;
    explicit Hdf5Id(hid_t id) : id_(id) {}
    Hdf5Id(Hdf5Id&& other) noexcept : id_(std::exchange(other.id_, H5I_INVALID_HID)) {}
    Hdf5Id& operator=(Hdf5Id&& other) noexcept
    {
        std::swap(id_, other.id_);
        return *this;
    }
    ~Hdf5Id();

    explicit operator bool() const { return id_ >= 0; }
    hid_t get() const { return id_; }

private:
    hid_t id_ = H5I_INVALID_HID;
};

// The extent of a variable's written part along each dimension, in the library's order. Along an
// unlimited dimension it may be less than the dimension's length, which is the largest extent of
// all its variables.
using WrittenExtents = std::vector<hsize_t>;

// The data kept about an open netCDF-4 file.
struct NotedFile {
    hid_t hdf5 = H5I_INVALID_HID;
    bool isInquired = false; // whether every variable was inquired (renamed_dimensions.h)
    std::map<std::pair<int, int>, WrittenExtents> extents; // as last seen, by group and variable
    std::map<std::pair<int, int>, bool> haveFixedLength;   // strings, by group and variable
};

// Remembers the HDF5 file behind an identifier that nc_open or nc_create has just returned: with
// two files of one path open, only the order of opening distinguishes them. Does nothing for other
// formats, and nothing when memory runs out: the file is then found by its path.
void noteOpenedFile(int ncid) noexcept;

// Discards the data about the file; called when the library has closed it.
void forgetFile(int ncid);

// Null for a file that was never noted, or that was closed without forgetting it.
NotedFile* findNotedFile(int ncid);

// The library's own handle of the file that ncid, of the file or one of its groups, belongs to: to
// be used and never closed. H5I_INVALID_HID when the file is not stored in HDF5.
hid_t hdf5File(int ncid, const OperationEntry* entry);

// The dataset in which a variable of that rank is stored; none for a variable that the library has
// defined but not yet written to the file.
Hdf5Id openDataset(int ncid, int varid, int rank, const OperationEntry* entry);

// The extents of a variable of that rank; none if they are unknown, as for a variable that is not
// yet in the file. Since extents only grow, earlier ones are reused, without access to the file, if
// they reach the needed ones in every dimension.
WrittenExtents writtenExtents(int ncid, int varid, const WrittenExtents& needed,
                              const OperationEntry* entry);

} // namespace Ovard::gridio
