// SPDX-License-Identifier: BSD-3-Clause
// How the values of a variable are to be decoded, by its attributes (CF conventions, sections 2.5.1
// and 8.1).
#pragma once

#include "cf/decoding.h"
#include "data/elements/variable.h"

#include <optional>
#include <string>
#include <vector>

namespace Ovard::gridio {

// What scripts switch decoding on by: the sum of these, 0 for values as they are stored.
enum DecodingFlags : unsigned {
    decodeMissing = 1,     // missing_value, _FillValue
    decodeDefaultFill = 2, // the type's default fill value, of types wider than a byte
    decodeValidRange = 4,  // valid_range, valid_min, valid_max
    decodeUnsigned = 8,    // _Unsigned
    decodeScale = 16,      // scale_factor, add_offset
    decodeToSingle = 32,   // packed values and integers with missing ones become single
    allDecodingFlags = 63
};

// An attribute that is broken is passed over with a warning, as if it were not there.
struct VariableDecoding {
    cf::DecodingRules rules;
    vxClassID storedClass = vxUNKNOWN_CLASS; // of values as they are stored; unsigned by _Unsigned
    bool isPacked = false;
    bool hasMissing = false; // missing values or a valid range are declared

    // Values of this class need no decoding as long as none is the default fill value.
    bool isPlain = false;
    std::optional<cf::StoredValue> defaultFill;

    // For the value that stands for NaN where values are written: _FillValue, else the first of
    // missing_value, else the default.
    cf::StoredValue fill{};

    std::vector<std::string> warnings; // each names the variable, the attribute and the cure

    // Of values that are decoded.
    vxClassID decodedClass() const;
    // Of values that are read, if no default fill value is among them.
    vxClassID resultClass() const { return isPlain ? storedClass : decodedClass(); }
};

// None for a variable that holds no numbers. Raises the library's failures.
std::optional<VariableDecoding> variableDecoding(const Variable& variable, unsigned flags);

} // namespace Ovard::gridio
