// SPDX-License-Identifier: BSD-3-Clause
// What the first bytes of a file say about it. Read with read(2) alone: opening a file with the
// netCDF or HDF5 library a second time would disturb what they have open.
#pragma once

#include <string>

namespace hosts::messages {

// A file descriptor for looking at a file, closed at the end. Never blocks.
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
    } // why it could not be opened: an errno, or 0 for what is no file

    // As many bytes as there are.
    std::string bytes(long long offset, std::size_t count) const;

private:
    int descriptor_ = -1;
    int error_ = 0;
};

// Whether the file begins as one that HDF5 wrote, whole or not.
bool isHdf5(const LookedAtFile& file);

// Sentences, or nothing when the file begins as a netCDF file does. path: as messages show it.
std::string findForeignContents(const LookedAtFile& file, const std::string& path);

// That the file is shorter than its HDF5 superblock says, or is marked as being written.
std::string findDamagedSuperblock(const LookedAtFile& file, const std::string& path);

} // namespace hosts::messages
