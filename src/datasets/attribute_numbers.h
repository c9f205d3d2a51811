// SPDX-License-Identifier: BSD-3-Clause
// Attributes that say how stored values are decoded, as numbers and as values of the variable's own
// type.
#pragma once

#include "cf/decoding.h"
#include "data/elements/variable.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Ovard::gridio {

// The content of a variable's attribute, whatever its type.
struct AttributeNumbers {
    // A number of an attribute; narrow types are widened.
    using Number = std::variant<double, std::int64_t, std::uint64_t>;

    bool exists = false;
    bool isText = false;                // characters or strings
    std::string text;                   // of characters only
    nc_type xtype = NC_NAT;             // of numbers; NC_NAT for all else
    std::size_t length = 0;             // also of what holds no numbers
    std::vector<Number> numbers;        // none of attributes that are too long for their purpose
    std::vector<cf::StoredValue> bytes; // the same numbers as they are stored
};

// More numbers than any variable has missing values.
constexpr std::size_t mostAttributeNumbers = 256;

// Raises the library's failures.
AttributeNumbers attributeNumbers(const Variable& variable, const char* name);

// The value of that type that equals the number; for floating types the nearest one, infinities
// only for infinities. None if the type has no such value.
std::optional<cf::StoredValue> storedNumber(const AttributeNumbers::Number& number,
                                            cf::StoredType type);

enum class BoundSide { lower, upper };

// A bound of valid values. Outside of the type on the far side it excludes all values.
struct Bound {
    bool excludesAll = false;
    std::optional<cf::StoredValue> value; // none if every value of the type is within
};

// Not for NaN.
Bound boundOf(const AttributeNumbers::Number& number, cf::StoredType type, BoundSide side);

double toDouble(const AttributeNumbers::Number& number);

} // namespace Ovard::gridio
