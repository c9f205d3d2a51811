// SPDX-License-Identifier: BSD-3-Clause
// The call that failed, with access to its arguments by name, for the text of its error.
#pragma once

#include "hosts/messages/operation_forms.h"

#include "vx/array.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hosts::messages {

// The arguments of plugFunction or plugAnyFunction, which must outlive this object. The first names
// the operation of that table.
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

    // Up to its first NUL, as the module reads it; empty if it is not text.
    const std::string& operation() const { return operation_; }

    OperationTable table() const { return context_.table; }

    // Null if the operation does not exist or has another number of arguments.
    const OperationForm* form() const { return form_; }

    // By the parameter's name in the form; null when the operation has no such parameter.
    const vxArray* argument(std::string_view parameter) const;
    bool has(std::string_view parameter) const { return argument(parameter) != nullptr; }

    // The argument's value; nullopt if it is missing or of another kind. Numbers are read as the
    // module reads them, from any numeric class; a number that cannot be an identifier gives
    // nullopt.
    std::optional<double> number(std::string_view parameter) const;
    std::optional<int> identifier(std::string_view parameter) const;
    std::optional<std::string> text(std::string_view parameter) const;
    std::vector<double> numbers(std::string_view parameter) const;

private:
    CallContext context_;
    std::string operation_;
    const OperationForm* form_ = nullptr;
};

// The elements of an array of any numeric class; empty for all others and for more than mostNumbers
// elements.
constexpr std::size_t mostNumbers = 4096;
std::vector<double> numbersOf(const vxArray* array);

// A char array in the narrow encoding, cut to the length that a message may need; nullopt for
// another class.
std::optional<std::string> textOf(const vxArray* array);

// 'the text "abc"', "a double array (1-by-3)", "the number 5 of class int32", "empty (0-by-0
// double)".
std::string describeValue(const vxArray* array);

// "double", "char"; "object or function" for a class without a name here.
const char* className(vxClassID classId);

} // namespace hosts::messages
