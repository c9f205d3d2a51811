// SPDX-License-Identifier: BSD-3-Clause
// The parameters of each operation, in enough detail to generate arguments that it may accept.
#pragma once

#include "vx/array.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace fuzz {

// Kinds of parameters, one letter each.
namespace parameter {
constexpr char file = 'f';
constexpr char mode = 'm';
constexpr char ncid = 'n';
constexpr char varid = 'v';
constexpr char dimid = 'd';
constexpr char attributeNumber = '#';
constexpr char name = 'N'; // of a dimension, a variable, a group or an attribute
constexpr char externalType = 'x';
constexpr char size = 'z';
constexpr char setting = 'i'; // a small number: fill mode, format, storage, level, checksum
constexpr char flag = 'l';
constexpr char dimids = 'R';
constexpr char chunkSizes = 'K';
constexpr char start = 's';
constexpr char count = 'c';
constexpr char stride = 'k';
constexpr char data = 'D';
constexpr char fillValue = 'V';
constexpr char preemption = 'P';
constexpr char constantName = 'C';
constexpr char type = 'T'; // and those below: of gridio_any only
constexpr char word = 'W';
constexpr char numbers = 'L';
constexpr char values = 'A'; // of any type
constexpr char singleNumber = 'p';
} // namespace parameter

// Which of the two tables an operation is in.
enum class Function { gridio, gridioAny };

struct Operation {
    std::string name;
    std::string parameters; // kinds, in order
    vxClassID dataClass;    // the class that a typed operation reads or writes; otherwise unknown
    Function function;

    // "any_getVar" for one of the second table.
    std::string title() const { return (function == Function::gridioAny ? "any_" : "") + name; }
};

// Every operation that can be called, once, in the order of docs/operations/.
const std::vector<Operation>& operations();

// The number by which fuzzing bytes identify an operation. It depends only on the title, so that a
// new operation does not change the meaning of the corpus.
std::uint16_t codeOf(std::string_view name);

// The operation with that code or, if there is none, with the next higher one.
const Operation& operationNear(std::uint16_t code);

} // namespace fuzz
