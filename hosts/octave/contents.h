// SPDX-License-Identifier: BSD-3-Clause
// What a cell array or a structure holds.
#pragma once

#include "array.h"

#include <octave/Cell.h>

#include <optional>
#include <string>
#include <vector>

namespace hosts::oct {

struct Contents {
    // Of a cell array, its cells; of a structure of one element, its fields.
    Cell values;

    // The names of the fields.
    std::vector<std::string> names;

    // What the module looks at: one of the values at a time, so that as much memory is used for a
    // million of them as for one.
    std::optional<vxArray> seen;
};

// Those of an argument are filled in when they are first asked for.
Contents& contents(const vxArray* array);

} // namespace hosts::oct
