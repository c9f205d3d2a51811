// SPDX-License-Identifier: BSD-3-Clause
// One step of a random program: a call of the module by name, which is replayed in plain C. All
// lists are in the library's dimension order here.
#pragma once

#include "hosts/standalone/value.h"
#include "tests/support/element_samples.h"

#include <netcdf.h>

#include <cstddef>
#include <string>
#include <variant>
#include <vector>

namespace properties {

// A group by its number in the order of creation; 0 is the file. The numbers are the same in both
// files, unlike the library's identifiers.
struct Group {
    std::size_t index = 0;
};

using Number = long long;
using Numbers = std::vector<Number>;

// Values to be written: C elements of the suffix's type.
struct Elements {
    std::string suffix;
    std::size_t count = 0;
    testsupport::Bytes bytes;
};

using Argument = std::variant<Group, Number, bool, std::string, Numbers, Elements>;

struct Call {
    std::string form;                // of the operation's name: "getVara"
    std::string suffix;              // "Double", or nothing
    std::vector<Argument> arguments; // in the operation's order

    std::string operation() const { return testsupport::operationName(form, suffix); }

    const Group& group(std::size_t i) const { return std::get<Group>(arguments.at(i)); }
    int number(std::size_t i) const { return static_cast<int>(std::get<Number>(arguments.at(i))); }
    std::size_t size(std::size_t i) const
    {
        return static_cast<std::size_t>(std::get<Number>(arguments.at(i)));
    }
    int flag(std::size_t i) const { return std::get<bool>(arguments.at(i)) ? 1 : 0; }
    const char* text(std::size_t i) const { return std::get<std::string>(arguments.at(i)).c_str(); }
    template <class T> std::vector<T> list(std::size_t i) const
    {
        const Numbers& numbers = std::get<Numbers>(arguments.at(i));
        return {numbers.begin(), numbers.end()};
    }
    const Elements& elements(std::size_t i) const { return std::get<Elements>(arguments.at(i)); }
};

// As text: getVaraDouble(group 0, 1, [0 2], [3 1]).
std::string show(const Call& call);

// The outcome of a call. Groups are given by their number, so that replies of the two files can be
// compared.
struct Reply {
    std::string failure; // "getVaraDouble: NC_EEDGE"; empty when it succeeded
    std::vector<standalone::Value> results;
};

inline bool operator==(const Reply& a, const Reply& b)
{
    return a.failure == b.failure && a.results == b.results;
}

std::string show(const Reply& reply);

} // namespace properties
