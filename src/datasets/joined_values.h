// SPDX-License-Identifier: BSD-3-Clause
// The values of a variable whose parts are in many files, one behind the other along a dimension.
#pragma once

#include "datasets/part_files.h"
#include "datasets/reduction.h"
#include "datasets/slab_queue.h"
#include "datasets/structure_argument.h"
#include "datasets/time_conversion.h"
#include "vx/error.h"

#include <optional>
#include <string>
#include <vector>

namespace Ovard::gridio {

// A variable of a file that is opened by its path.
class PartVariable {
public:
    // owner: see PartFiles. name: the path of groups and the name, with or without a slash ahead.
    // Raises the library's failures.
    PartVariable(double owner, const std::string& path, const std::string& name,
                 const OperationEntry* entry);

    Variable& variable() { return *variable_; }

    // The same in a file that is open.
    PartVariable(int ncid, const std::string& name, const OperationEntry* entry);

    // Raises badPart unless the variable has these lengths.
    void requireLengths(const SizeVector& expected);

private:
    std::optional<Variable> variable_;
};

// A structure with these fields. Lists have an element for each part, in the order in which the
// parts are joined.
struct JoinedParts {
    explicit JoinedParts(const vxArray* a);

    double owner;
    std::vector<std::string> paths;
    std::string name;
    std::size_t dimension;                     // that is joined; from 1, in the host's order
    bool isNew;                                // whether the variables of the parts lack it
    std::vector<double> lengths;               // of the parts along it
    std::vector<double> isUsed;                // 0: the part is left out
    std::vector<std::string> units, calendars; // of times; or empty
    TimeScale scale;                           // to which they are converted
    cf::LongUnits longUnits;
};

// Which part could not be read, and why.
struct FailedPart {
    std::size_t part; // from 0
    std::string reason;
};

class JoinedSource : public ValueSource {
public:
    JoinedSource(const JoinedParts& parts, unsigned flags, const OperationEntry* entry)
        : parts_(parts), flags_(flags), entry_(entry)
    {
    }

    // Throws FailedPart for what cannot be read; raises the host's interrupt.
    void forEachSlab(const Block& block, const Visit& visit) override;

private:
    // The indices of the block that are in a part.
    struct Range {
        std::size_t part;
        std::size_t begin; // of the part, along the dimension
        std::size_t first; // of the block's indices
        std::size_t count;
    };

    // A part while its slabs are read.
    struct OpenPart;

    void readPart(const Range& range, const Block& block, const Visit& visit);
    Block blockOf(const Range& range, const Block& block) const;
    void pass(const OpenPart& part, const Range& range, const Spans& spans, double* values,
              const Visit& visit) const;
    std::size_t dimensionOf(const Block& block) const
    {
        return block.count.size() - parts_.dimension;
    }

    const JoinedParts& parts_;
    unsigned flags_;
    const OperationEntry* entry_;
    SlabQueue slabs_;
};

// What an error of the module says, for reports about one file of many.
std::string reasonOf(const msgcat::BaseMsgID& id);

} // namespace Ovard::gridio
