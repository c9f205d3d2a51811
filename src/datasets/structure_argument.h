// SPDX-License-Identifier: BSD-3-Clause
// Structures, lists of texts and lists of numbers as arguments.
#pragma once

#include "vx/array.h"

#include <string>
#include <vector>

namespace Ovard::gridio {

// Numbers of any class, or flags. Raises badArgument, with what was expected, for anything else.
std::vector<double> readNumbers(const vxArray* a, const char* name, const char* expected);

// A cell array of texts. Raises badArgument for anything else.
std::vector<std::string> readTexts(const vxArray* a, const char* name);

// A structure of one element. Raises badArgument for anything else, and for fields that it lacks.
class StructureArgument {
public:
    StructureArgument(const vxArray* a, const char* name);

    const vxArray* field(const char* fieldName) const;
    double number(const char* fieldName) const;
    std::vector<double> numbers(const char* fieldName) const;
    std::string text(const char* fieldName) const;
    std::vector<std::string> texts(const char* fieldName) const;

private:
    const vxArray* structure_;
    const char* name_;
};

} // namespace Ovard::gridio
