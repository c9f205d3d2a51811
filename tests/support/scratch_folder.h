// SPDX-License-Identifier: BSD-3-Clause
// A folder of one test's own, which ends with it.
#pragma once

#include <string>

namespace testsupport {

class ScratchFolder {
public:
    ScratchFolder();
    ~ScratchFolder();
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;

    // The full name of a file in the folder, which need not exist.
    std::string file(const std::string& name) const { return path_ + "/" + name; }

    const std::string& path() const { return path_; }

private:
    std::string path_;
};

} // namespace testsupport
