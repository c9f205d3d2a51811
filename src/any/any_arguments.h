// SPDX-License-Identifier: BSD-3-Clause
// Argument readers that only the operations on values of any type use.
#pragma once

#include "operation_entry.h"

#include <netcdf.h>

#include <string>
#include <string_view>
#include <vector>

namespace Ovard::gridio {

// A type: its number, or its name as "string" or that of a type of the file, which is looked up
// from the group. Raises badScalarArgument and the library's failures.
nc_type readType(const vxArray* a, int ncid, std::string_view name, const OperationEntry* entry);

// Numbers of any numeric class, in storage order; the array may be empty. Raises badRowDatatype for
// another class, throws a Boost overflow for a number that does not fit.
std::vector<unsigned int> readUintList(const vxArray* a, std::string_view name);
std::vector<int> readIntList(const vxArray* a, std::string_view name);

// A word for one of the library's numbers.
struct Word {
    const char* text;
    int number;
};

// The number of a word, in any case. Raises argumentWasNotChar, and unrecognizedWord with the list
// of all.
template <std::size_t count>
int readWord(const vxArray* a, std::string_view name, const Word (&words)[count]);

// The word for a number; its digits if there is none.
template <std::size_t count> vxArray* wordResult(int number, const Word (&words)[count]);

int readWord(const vxArray* a, std::string_view name, const Word* words, std::size_t count);
vxArray* wordResult(int number, const Word* words, std::size_t count);

template <std::size_t count>
int readWord(const vxArray* a, std::string_view name, const Word (&words)[count])
{
    return readWord(a, name, words, count);
}

template <std::size_t count> vxArray* wordResult(int number, const Word (&words)[count])
{
    return wordResult(number, words, count);
}

} // namespace Ovard::gridio
