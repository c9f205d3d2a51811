// SPDX-License-Identifier: BSD-3-Clause
// The call that failed, as the text of its error looks at it: by the names of its arguments.
#pragma once

#include "hosts/messages/operation_forms.h"

#include "vx/array.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// The arguments of plugFunction or plugAnyFunction, which are alive while the text is made. The
// first names the operation of that table.
struct CallContext {
    const vxArray* const* arguments;
    std::size_t count;
    OperationTable table = OperationTable::first;
};

class FailedCall {
public:
    explicit FailedCall(const CallContext& context);

    std::size_t argumentCount() const { return context_.count; }

    // Null without any argument.
    const vxArray* operationArgument() const;

    // Up to its first NUL, as the module takes it; empty when it is no text.
    const std::string& operation() const { return operation_; }

    OperationTable table() const { return context_.table; }

    // Null for an operation that does not exist, and for one that has another number of arguments.
    const OperationForm* form() const { return form_; }

    // By the parameter's name in the form; null when the operation has no such parameter.
    const vxArray* argument(std::string_view parameter) const;
    bool has(std::string_view parameter) const { return argument(parameter) != nullptr; }

    // What the argument holds; nothing when it is missing or holds something else. Numbers come as
    // the module takes them: of any numeric class, and one that is no identifier gives nothing.
    std::optional<double> number(std::string_view parameter) const;
    std::optional<int> identifier(std::string_view parameter) const;
    std::optional<std::string> text(std::string_view parameter) const;
    std::vector<double> numbers(std::string_view parameter) const;

private:
    CallContext context_;
    std::string operation_;
    const OperationForm* form_ = nullptr;
};

// The elements of an array of any numeric class, empty for all others and for more than mostNumbers
// elements.
constexpr std::size_t mostNumbers = 4096;
std::vector<double> numbersOf(const vxArray* array);

// A char array in the narrow encoding, at most so much of it as a message may need; nothing for
// another class.
std::optional<std::string> textOf(const vxArray* array);

// 'the text "abc"', "a double array (1-by-3)", "the number 5 of class int32", "empty (0-by-0
// double)".
std::string describeValue(const vxArray* array);

// "double", "char", "object or function" for a class that has no name here.
const char* className(vxClassID classId);

} // namespace hosts::messages
