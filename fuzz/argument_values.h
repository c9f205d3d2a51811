// SPDX-License-Identifier: BSD-3-Clause
// Arguments from fuzzing bytes: one that the parameter may accept, or an arbitrary value. No array
// has more than 64 elements, except the data of writes, which have at most 4096.
#pragma once

#include "fuzz/input_bytes.h"
#include "fuzz/operation_signatures.h"
#include "hosts/standalone/value.h"

#include <vector>

namespace fuzz {

class ArgumentValues {
public:
    // knownIds: identifiers of files and groups that earlier calls returned.
    ArgumentValues(InputBytes& input, const std::vector<int>& knownIds)
        : input_(input), knownIds_(knownIds)
    {
    }

    // One argument for each parameter of that operation, in order; sometimes one too few or too
    // many.
    std::vector<standalone::Value> forOperation(const Operation& operation);

    // A value of any class and shape.
    standalone::Value anything();

private:
    standalone::Value plausible(char kind, vxClassID dataClass);
    standalone::Value plausibleOfAnyType(char kind);
    standalone::Value inScratchFolder(const standalone::Value& given);
    standalone::Value name();
    standalone::Value mode();
    standalone::Value ncid();
    standalone::Value size();
    standalone::Value indexVector(char kind);
    standalone::Value row(std::size_t limit);
    standalone::Value data(vxClassID classId);
    standalone::Value numeric(vxClassID classId, const standalone::Dims& dims);
    standalone::Value numericOfAnyClass(const standalone::Dims& dims);
    standalone::Value text(std::size_t limit);
    standalone::Value type();
    standalone::Value numbers();
    standalone::Value values();
    standalone::Value valuesOfAnyClass(std::size_t count, int depth);
    standalone::Value mutatedNestedValues(std::size_t count);
    standalone::Dims shape();

    InputBytes& input_;
    const std::vector<int>& knownIds_;
    std::size_t countProduct_ = 1; // of the last COUNT generated in this call
    std::size_t rank_ = 1;         // of the last START generated in this call
};

} // namespace fuzz
