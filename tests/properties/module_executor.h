// SPDX-License-Identifier: BSD-3-Clause
// Carries calls out through the module, by the names of its operations.
#pragma once

#include "hosts/standalone/host.h"
#include "tests/properties/call.h"

#include <string>
#include <vector>

namespace properties {

class ModuleExecutor {
public:
    ModuleExecutor(standalone::Host& host, std::string path) : host_(host), path_(std::move(path))
    {
    }

    // The file is this one's own: "create" and "open" take the mode alone, and number the groups
    // afresh, in the order of the file.
    Reply run(const Call& call);

    int ncid(const Group& group) const { return groups_.at(group.index); }

private:
    void numberGroups(int ncid);
    standalone::Value hostValue(const Argument& argument) const;
    standalone::Value placesOf(const standalone::Value& identifiers) const;

    standalone::Host& host_;
    std::string path_;
    std::vector<int> groups_;
};

} // namespace properties
