// SPDX-License-Identifier: BSD-3-Clause
// Large memory, and memory that the interpreter can own as an array's storage.
#pragma once

#include <cstddef>

namespace hosts::oct {

// Asks for huge pages behind a large block that is not yet touched: touching small pages one by one
// takes more time than most reads. Does nothing for a small one.
void adviseHugePages(void* block, size_t bytes);

// A block that ::operator delete releases, holding anything; beyond 32 MiB it begins on a cache
// line.
void* newElements(size_t count, size_t elementSize);

} // namespace hosts::oct
