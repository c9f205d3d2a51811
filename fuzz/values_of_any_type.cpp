// SPDX-License-Identifier: BSD-3-Clause
// The arguments of the operations on values of any type.
#include "fuzz/argument_values.h"
#include "fuzz/nested_type.h"

#include <algorithm>
#include <string>
#include <utility>

namespace fuzz {

using standalone::Value;

namespace {

constexpr std::size_t mostValues = 64;

constexpr const char* typeNames[] = {"nested", "sky",    "words", "blob", "pair", "int",
                                     "byte",   "string", "new",   "char", "",     "/g/new"};

constexpr const char* words[] = {"native",   "little",           "big",      "none",
                                 "BitGroom", "GranularBitRound", "BITROUND", "other"};

// Labels, and texts of all lengths.
constexpr const char* texts[] = {"clear", "cloudy",   "",
                                 "a",     "\xc3\xa9", "a longer text than others"};

} // namespace

Value ArgumentValues::plausibleOfAnyType(char kind)
{
    switch (kind) {
    case parameter::type:
        return type();
    case parameter::word:
        return input_.oneOf(words);
    case parameter::numbers:
        return numbers();
    case parameter::values:
        return values();
    case parameter::singleNumber:
        return 0.25 * static_cast<double>(input_.below(6));
    default:
        return anything();
    }
}

// User types have numbers from 32.
Value ArgumentValues::type()
{
    if (input_.oneIn(2))
        return input_.oneOf(typeNames);
    const std::size_t number = input_.below(24);
    return number < 14 ? number : number + 18;
}

Value ArgumentValues::numbers()
{
    const std::size_t count = input_.below(4);
    return count == 0 ? Value::empty() : numericOfAnyClass({1, count});
}

// As many as the block needs, or any number.
Value ArgumentValues::values()
{
    static constexpr std::size_t counts[] = {1, 2, 0, 3, 6};
    const bool asCounted = !input_.oneIn(3);
    const std::size_t count =
        asCounted ? std::min(countProduct_, mostValues) : input_.oneOf(counts);
    return input_.oneIn(2) ? mutatedNestedValues(count) : valuesOfAnyClass(count, 0);
}

// Of the type "nested", now and then with one field missing, another one, or other values in one.
Value ArgumentValues::mutatedNestedValues(std::size_t count)
{
    const Value valid = nestedValues(count);
    std::vector<std::pair<std::string, Value>> fields;
    for (const std::string& name : valid.fieldNames())
        fields.emplace_back(name, valid.field(name));
    const std::size_t place = input_.below(16);
    if (place < fields.size())
        fields[place].second = valuesOfAnyClass(count, 1);
    else if (place == fields.size())
        fields.pop_back();
    else if (place == fields.size() + 1)
        fields.emplace_back("other", Value(1));
    return Value::structure(fields);
}

Value ArgumentValues::valuesOfAnyClass(std::size_t count, int depth)
{
    constexpr int deepest = 3;
    switch (depth < deepest ? input_.below(8) : input_.below(4)) {
    case 0:
        return numeric(vxUINT8_CLASS, {3, count}); // of the type "blob"
    case 1:
        return numericOfAnyClass({count, 1});
    case 2:
        return input_.oneOf(texts);
    case 3:
        return anything();
    case 4:
        return mutatedNestedValues(count);
    default:
        break;
    }
    std::vector<Value> cells(count, Value(input_.oneOf(texts)));
    for (std::size_t i = 0; i < std::min(count, std::size_t{3}); ++i) {
        if (input_.oneIn(2))
            cells[i] = valuesOfAnyClass(input_.below(3), depth + 1);
    }
    return Value::cell({count, 1}, cells);
}

} // namespace fuzz
