// SPDX-License-Identifier: BSD-3-Clause
// The files of datasets of many files. Each is opened when something of it is read, and stays open
// until others are needed: of all of them at most 63 are open at a time, one less than 64 for the
// file by which a dataset is described. The one that was not used for longest is closed first.
#pragma once

#include <list>
#include <string>

namespace Ovard::gridio {

class PartFiles {
public:
    // The files of this session of the module.
    static PartFiles& instance();

    // Opens a file for reading, unless it is open. owner is the number of the dataset. Returns
    // NC_NOERR or the library's status. ncid is valid until the next call.
    int open(double owner, const std::string& path, int& ncid);

    // Closes the files of a dataset.
    void closeOf(double owner);

private:
    struct OpenPart {
        double owner;
        std::string path;
        int ncid;
    };

    static void close(const OpenPart& part);

    std::list<OpenPart> parts_; // the last used first
};

} // namespace Ovard::gridio
