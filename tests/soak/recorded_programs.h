// SPDX-License-Identifier: BSD-3-Clause
// Random programs, always the same ones, as the calls that they come to: mixed as a long session
// mixes them, and to be repeated any number of times.
#pragma once

#include "tests/properties/call.h"

#include <iosfwd>
#include <string>
#include <vector>

namespace soak {

using Program = std::vector<properties::Call>; // from "create" to the last "close"

// Some of each format. Needs the name of a file to try them out on.
std::vector<Program> recordPrograms(const std::string& path);

std::size_t callsIn(const std::vector<Program>& programs);

// As a function of the interpreter that gives them as cells of cells: each call is an operation and
// its arguments, where a group is a handle that looks it up in a list of identifiers.
void writeScript(const std::vector<Program>& programs, std::ostream& out);

} // namespace soak
