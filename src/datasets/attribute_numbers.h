// SPDX-License-Identifier: BSD-3-Clause
// Attributes that say how stored values are to be read, as numbers and as values of the variable's
// own type.
#pragma once

#include "cf/decoding.h"
#include "data/elements/variable.h"

#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace Ovard::gridio {

// What an attribute of a variable holds, whatever is in it.
struct AttributeNumbers {
    // A number of an attribute; those of narrow types as one that holds them all.
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

// The type of stored values for a netCDF type; none for what holds no numbers.
std::optional<cf::StoredType> storedTypeOf(nc_type xtype);

bool isSignedInteger(cf::StoredType type);
bool isFloating(cf::StoredType type);

// Calls visit with a zero of the C type.
template <class Visit> auto withTypeOf(cf::StoredType type, Visit&& visit)
{
    // clang-format off
    switch (type) {
    case cf::StoredType::int8:    return visit(std::int8_t{});
    case cf::StoredType::uint8:   return visit(std::uint8_t{});
    case cf::StoredType::int16:   return visit(std::int16_t{});
    case cf::StoredType::uint16:  return visit(std::uint16_t{});
    case cf::StoredType::int32:   return visit(std::int32_t{});
    case cf::StoredType::uint32:  return visit(std::uint32_t{});
    case cf::StoredType::int64:   return visit(std::int64_t{});
    case cf::StoredType::uint64:  return visit(std::uint64_t{});
    case cf::StoredType::float32: return visit(float{});
    case cf::StoredType::float64: break;
    }
    // clang-format on
    return visit(double{});
}

// The value of that type that equals the number; for floating types the nearest one, infinities
// only for infinities. None if there is none.
std::optional<cf::StoredValue> storedNumber(const AttributeNumbers::Number& number,
                                            cf::StoredType type);

enum class BoundSide { lower, upper };

// A bound of valid values: none of all values if it lies outside of the type on the far side.
struct Bound {
    bool excludesAll = false;
    std::optional<cf::StoredValue> value; // none if every value of the type is within
};

// Not for NaN.
Bound boundOf(const AttributeNumbers::Number& number, cf::StoredType type, BoundSide side);

double toDouble(const AttributeNumbers::Number& number);

} // namespace Ovard::gridio
