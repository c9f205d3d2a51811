// SPDX-License-Identifier: BSD-3-Clause
// A file that a test inspects or creates with the library's own functions, without the module.
#pragma once

#include <netcdf.h>

#include <stdexcept>
#include <string>

namespace testsupport {

// Throws if a library call of the test itself fails.
inline void require(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(nc_strerror(status));
}

class LibraryFile {
public:
    static LibraryFile open(const std::string& path, int mode = NC_NOWRITE)
    {
        LibraryFile file;
        require(nc_open(path.c_str(), mode, &file.ncid_));
        return file;
    }
    static LibraryFile create(const std::string& path, int mode = NC_NETCDF4)
    {
        LibraryFile file;
        require(nc_create(path.c_str(), mode, &file.ncid_));
        return file;
    }
    LibraryFile(LibraryFile&& other) noexcept : ncid_(other.ncid_) { other.ncid_ = -1; }
    LibraryFile& operator=(LibraryFile&&) = delete;
    ~LibraryFile()
    {
        if (ncid_ >= 0)
            static_cast<void>(nc_close(ncid_)); // a test that checks this calls close
    }

    int ncid() const { return ncid_; }
    int varid(const std::string& name) const
    {
        int id = -1;
        require(nc_inq_varid(ncid_, name.c_str(), &id));
        return id;
    }
    void close()
    {
        const int ncid = ncid_;
        ncid_ = -1;
        require(nc_close(ncid));
    }

private:
    LibraryFile() = default;

    int ncid_ = -1;
};

} // namespace testsupport
