// SPDX-License-Identifier: BSD-3-Clause
// Paths that release 4.9.0 misreads. It drops blanks and control characters at the beginning of a
// path, and in paths of netCDF-4 files takes a backslash for a slash and "c:" for a drive.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the library takes the text for an address rather than a path:
// "file:///data#mode=zarr,file" or "https://...", with parameters in brackets before it or not.
bool isAddress(const std::string& path);

// A path by which the library finds the file that a script names, valid as long as the object.
// Addresses are unchanged. A netCDF-4 file with a backslash in its path is passed by a descriptor;
// a new file is created for it.
class LibraryPath {
public:
    enum class Purpose { opening, creating };

    // mode: the flags of nc_open or nc_create, which determine the format of a new file.
    LibraryPath(const std::string& path, Purpose purpose, int& mode);
    ~LibraryPath();
    LibraryPath(const LibraryPath&) = delete;
    LibraryPath& operator=(const LibraryPath&) = delete;

    const char* c_str() const { return path_.c_str(); }

    // NC_NOERR, or the status with which the library would have failed.
    int status() const { return status_; }

private:
    void openDescriptor(const std::string& path, int flags);

    std::string path_;
    int status_ = 0;
    int descriptor_ = -1;
};

} // namespace Ovard::gridio
