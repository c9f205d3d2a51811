// SPDX-License-Identifier: BSD-3-Clause
// How each operation is called: the names and kinds of its arguments, as its entry in
// docs/operations/ has them.
#pragma once

#include "vx/array.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace hosts::messages {

enum class ParameterKind {
    integer,
    size,
    text,
    flag,
    mode,
    row,
    index,
    stride,
    rawSingle,
    fillValue,
    data,
    integer64, // and those below: of gridio_any only
    unsigned32,
    singleNumber,
    type,
    word,
    numbers,
    values
};

struct Parameter {
    std::string_view name;      // in the form of the call: "ncid", "START"
    std::string_view errorName; // in the module's errors: "deflate level"
    ParameterKind kind;
};

// The module's tables of operations: that of gridio, that of gridio_any, and that of the dataset
// classes, whose operations have no forms.
enum class OperationTable { first, any, datasets };

struct OperationForm {
    static constexpr std::size_t mostParameters = 6;

    std::string_view name;
    std::string_view results; // "[name, dim_length]", "varid"; empty if it returns nothing
    Parameter parameters[mostParameters];
    std::size_t parameterCount;
    vxClassID dataClass; // of the values that it writes; vxUNKNOWN_CLASS if it writes none
    OperationTable table = OperationTable::first;
};

const OperationForm* beginOperationForms();
const OperationForm* endOperationForms();

// Null if that table has no operation of the name.
const OperationForm* findOperationForm(std::string_view name,
                                       OperationTable table = OperationTable::first);

// 'varid = gridio ("defVar", ncid, name, xtype, dimids)'
std::string callText(const OperationForm& form);

} // namespace hosts::messages
