// SPDX-License-Identifier: BSD-3-Clause
// What the first bytes of a file show. They are read with read(2) only: opening a file a second
// time with the netCDF or HDF5 library would disturb the files that they have open.
#pragma once

#include <string>

namespace hosts::messages {

// A file descriptor for inspecting a file, closed at the end of the scope. Opening never blocks.
class LookedAtFile {
public:
    explicit LookedAtFile(const std::string& path);
    ~LookedAtFile();
    LookedAtFile(const LookedAtFile&) = delete;
    LookedAtFile& operator=(const LookedAtFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }
    int error() const
    {
        return error_;
    } // why it could not be opened: an errno, or 0 if it is not a regular file

    // Fewer bytes if the file is shorter.
    std::string bytes(long long offset, std::size_t count) const;

private:
    int descriptor_ = -1;
    int error_ = 0;
};

// Whether the file begins like an HDF5 file, complete or not.
bool isHdf5(const LookedAtFile& file);

// Sentences; empty if the file begins like a netCDF file. path: as messages show it.
std::string findForeignContents(const LookedAtFile& file, const std::string& path);

// Reports that the file is shorter than its HDF5 superblock says, or is marked as being written.
std::string findDamagedSuperblock(const LookedAtFile& file, const std::string& path);

} // namespace hosts::messages
