// SPDX-License-Identifier: BSD-3-Clause
// For each operation of both tables a call that succeeds, on a file created for it.
#pragma once

#include "fuzz/operation_signatures.h"
#include "hosts/standalone/host.h"

#include <ostream>
#include <string>
#include <vector>

namespace fuzz {

inline void PrintTo(const Operation& operation, std::ostream* out) { *out << operation.title(); }

} // namespace fuzz

namespace faults {

// A new netCDF-4 file in define mode, in the registry, and a classic one to be opened. Both in
// a folder that must outlive them.
//
// Dimensions x (2) and y (3); variables v (y, x) of doubles, all 1, with the attribute "range", and
// w (y, x) of text with the attribute "title"; a group g. For an operation on values of any type
// also what fuzz::addNestedType adds.
class PreparedFile {
public:
    explicit PreparedFile(const std::string& folder,
                          fuzz::Function function = fuzz::Function::gridio);

    int ncid() const { return ncid_; }
    int group() const { return group_; }
    const std::string& folder() const { return folder_; }

private:
    std::string folder_;
    int ncid_ = 0;
    int group_ = 0;
};

std::vector<standalone::Value> argumentsThatSucceed(const fuzz::Operation& operation,
                                                    const PreparedFile& file);

// Calls it, of either table, and asks for all results.
standalone::Outcome attempt(standalone::Host& host, const fuzz::Operation& operation,
                            const std::vector<standalone::Value>& arguments);

} // namespace faults
