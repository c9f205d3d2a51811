// SPDX-License-Identifier: BSD-3-Clause
// The common fixture of tests of definitions, attributes and data: short ways to call an operation.
#pragma once

#include "tests/support/library_failure.h"
#include "tests/support/module_test.h"

#include <initializer_list>
#include <string>
#include <vector>

namespace testsupport {

class OperationTest : public ModuleTest {
protected:
    using Value = standalone::Value;
    using Values = std::vector<Value>;
    using Outcome = standalone::Outcome;

    // The first result.
    Value got(const std::string& operation, const Values& arguments)
    {
        return host.call(operation, arguments).at(0);
    }
    double number(const std::string& operation, const Values& arguments)
    {
        return got(operation, arguments).toDouble();
    }
    int id(const std::string& operation, const Values& arguments)
    {
        return static_cast<int>(number(operation, arguments));
    }
    Outcome attempt(const std::string& operation, const Values& arguments)
    {
        return host.attempt(operation, arguments);
    }

    static Value row(std::initializer_list<double> numbers)
    {
        return numbers.size() == 0 ? Value::empty() : Value::row(std::vector<double>(numbers));
    }
};

} // namespace testsupport
