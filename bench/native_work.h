// SPDX-License-Identifier: BSD-3-Clause
// What the parts of the native worker share: files of the library, and memory to read into.
#pragma once

#include "bench/worker.h"

#include <netcdf.h>

#include <cstddef>
#include <cstdlib>
#include <map>
#include <memory>
#include <stdexcept>
#include <string>
#include <utility>

namespace bench {

using Works = std::map<std::string, Work>;

// In native_files.cpp: making the files that are read, and reading those that others wrote.
Works fileWorks();

// In native_calls.cpp: the library's part of the calls that are measured one by one.
Works callWorks();

// In native_chunks.cpp: compressed data.
Works chunkWorks();

// In native_datasets.cpp: what datasets are compared with.
Works datasetWorks();

// Memory of malloc, or, once hugePages is set, memory that asks for huge pages.
extern bool hugePages;
void* freshMemory(std::size_t bytes);

template <class T> std::shared_ptr<T> fresh(std::size_t count)
{
    return {static_cast<T*>(freshMemory(count * sizeof(T))), [](T* block) { std::free(block); }};
}

inline void check(int status)
{
    if (status != NC_NOERR)
        throw std::runtime_error(nc_strerror(status));
}

class File {
public:
    explicit File(const std::string& path) { check(nc_open(path.c_str(), NC_NOWRITE, &ncid_)); }
    explicit File(const Job& job)
    {
        check(
            nc_create(job.path.c_str(), job.format == "netcdf4" ? NC_NETCDF4 : NC_CLOBBER, &ncid_));
    }
    ~File() { static_cast<void>(nc_close(ncid_)); }
    File(const File&) = delete;
    File& operator=(const File&) = delete;

    int id() const { return ncid_; }

private:
    int ncid_ = -1;
};

template <class T> Done finish(double seconds, std::shared_ptr<T> values, std::size_t count)
{
    return {seconds, [=] { return checksum(values.get(), count); }};
}

inline Done finish(double seconds, double sum)
{
    return {seconds, [=] { return sum; }};
}

// A field of count / 65536 levels of 256 by 256; the variable's identifier.
inline int defineField(int ncid, nc_type xtype, std::size_t count)
{
    int dimids[3];
    check(nc_def_dim(ncid, "z", count / 65536, &dimids[0]));
    check(nc_def_dim(ncid, "y", 256, &dimids[1]));
    check(nc_def_dim(ncid, "x", 256, &dimids[2]));
    int varid = 0;
    check(nc_def_var(ncid, "v", xtype, 3, dimids, &varid));
    return varid;
}

inline double valueAt(std::size_t i) { return static_cast<double>(i % 1009) * 0.25; }
inline short shortAt(std::size_t i) { return static_cast<short>(i % 1009); }
inline char letterAt(std::size_t i) { return static_cast<char>('a' + i % 26); }

} // namespace bench
