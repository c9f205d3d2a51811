// SPDX-License-Identifier: BSD-3-Clause
// Replays calls in plain C on its own file, and derives the expected outcome of the script from the
// library's results alone.
#pragma once

#include "tests/properties/call.h"

#include <string>
#include <vector>

namespace properties {

class LibraryExecutor {
public:
    explicit LibraryExecutor(std::string path) : path_(std::move(path)) {}
    ~LibraryExecutor();
    LibraryExecutor(const LibraryExecutor&) = delete;
    LibraryExecutor& operator=(const LibraryExecutor&) = delete;

    // "create" and "open" take only the mode, and renumber the groups in the order of the file.
    Reply run(const Call& call);

    // The number of groups; 0 while no file is open.
    std::size_t groupCount() const { return groups_.size(); }
    int ncid(const Group& group) const { return groups_.at(group.index); }

    // The state that the forms of calls share.
    const std::string& path() const { return path_; }
    void numberGroups(int ncid);
    void addGroup(int ncid) { groups_.push_back(ncid); }
    double placeOf(int ncid) const;
    void forgetFile() { groups_.clear(); }

private:
    std::string path_;
    std::vector<int> groups_;
};

} // namespace properties
