// SPDX-License-Identifier: BSD-3-Clause
// The contents of a cell array or a structure.
#pragma once

#include "array.h"

#include <octave/Cell.h>

#include <optional>
#include <string>
#include <vector>

namespace hosts::oct {

struct Contents {
    // The cells of a cell array, or the fields of a structure of one element.
    Cell values;

    // The names of the fields.
    std::vector<std::string> names;

    // The module's view of one value at a time, so that a million of them take no more memory than
    // one.
    std::optional<vxArray> seen;
};

// The names of an argument are determined when they are first requested.
Contents& contents(const vxArray* array);

} // namespace hosts::oct
