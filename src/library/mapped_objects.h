// SPDX-License-Identifier: BSD-3-Clause
// The shared libraries of the process.
#pragma once

#include <string>
#include <vector>

namespace Ovard::gridio {

// The library that holds this function or object; empty if it is part of the program.
std::string libraryAt(const void* address);

// All libraries of the process that define a symbol of this name, in the order of loading.
std::vector<std::string> librariesThatDefine(const char* symbol);

// Keeps the library that holds this function or object mapped until the process ends.
void keepMapped(const void* address) noexcept;

} // namespace Ovard::gridio
