// SPDX-License-Identifier: BSD-3-Clause
// Opening of files by path, with the guards against paths that the library mishandles.
#pragma once

#include <string>

namespace Ovard::gridio {

// The status with which a file is refused before the library sees it, which would crash or block;
// NC_NOERR if it is not.
int refusalToOpen(const std::string& file, int mode);

// nc_open with these flags. Returns NC_NOERR or the library's status.
int openFile(const std::string& file, int mode, int& ncid);

// A file that is open for reading until the end of the scope. Scripts do not see it.
class ScopedFile {
public:
    explicit ScopedFile(const std::string& file);
    ~ScopedFile();
    ScopedFile(const ScopedFile&) = delete;
    ScopedFile& operator=(const ScopedFile&) = delete;

    int status() const { return status_; }
    int ncid() const { return ncid_; }

private:
    int ncid_ = -1;
    int status_;
};

} // namespace Ovard::gridio
