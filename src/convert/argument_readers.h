// SPDX-License-Identifier: BSD-3-Clause
// Readers of scalar, text, flag and data arguments. The parameter name appears in the error, to
// show which argument was wrong.
#pragma once

#include "vx/array.h"

#include <cstddef>
#include <string>
#include <string_view>

namespace Ovard::gridio {

// The parameter name for which the numeric readers accept NaN and infinite values, since fill
// values may be so.
constexpr std::string_view fillValueName = "FILLVALUE";

// Typed scalar readers: an array of one element of any of the ten numeric classes, its real part
// converted by convertChecked. Raise badScalarArgument(name, "numeric") for any other count or
// class and, unless the name is fillValueName, for NaN and infinity; throw a Boost overflow for a
// value out of range.
std::size_t readSizeScalar(const vxArray* a, std::string_view name);
int readIntScalar(const vxArray* a, std::string_view name);
double readDoubleScalar(const vxArray* a, std::string_view name);
float readFloatScalar(const vxArray* a, std::string_view name);
long readInt64Scalar(const vxArray* a, std::string_view name);
unsigned int readUintScalar(const vxArray* a, std::string_view name);
unsigned short readUshortScalar(const vxArray* a, std::string_view name);
short readShortScalar(const vxArray* a, std::string_view name);
unsigned char readUcharScalar(const vxArray* a, std::string_view name);
signed char readScharScalar(const vxArray* a, std::string_view name);

// A file or group identifier: readIntScalar, but the identifier of an abandoned file
// (library/guards/torn_down_files.h) is replaced by one that the library refuses.
int readNcid(const vxArray* a, std::string_view name = "ncid");

// A name or word: a char array of any shape, in storage order, in the narrow encoding. Raises
// argumentWasNotChar(name) for any other class. An empty char array gives an empty string.
std::string readText(const vxArray* a, std::string_view name);

// A logical scalar. Raises expectedLogicalType(name) for anything else, numeric 0 and 1 too.
bool readFlag(const vxArray* a, std::string_view name);

// The first four bytes of the array's storage as a float, deliberately whatever its class, count
// and value: a double is not converted. Raises badScalarArgument(name, "numeric") when there are
// not four bytes.
float readRawFloat(const vxArray* a, std::string_view name);

// Text to be stored in a file: one byte for each element, the low byte of its UTF-16 unit, with no
// conversion of encoding. Unlike readText it deliberately accepts any class: other storage is taken
// as units. Raises dataSizeMismatch when the storage holds fewer than two bytes for each element.
std::string charDataToString(const vxArray* a);

// Raises dataSizeMismatch when the array's storage holds fewer bytes than count elements of that
// size. The class is deliberately not checked.
void requireStorage(const vxArray* data, std::size_t count, std::size_t elementSize);

} // namespace Ovard::gridio
