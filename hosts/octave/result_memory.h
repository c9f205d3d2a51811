// SPDX-License-Identifier: BSD-3-Clause
// Large memory blocks, and memory that the interpreter can own as an array's storage.
#pragma once

#include <cstddef>

namespace hosts::oct {

// Requests huge pages for a large block that has not been touched yet: touching small pages one by
// one takes longer than most reads. Does nothing for a small block.
void adviseHugePages(void* block, size_t bytes);

// An uninitialised block that ::operator delete releases; beyond 32 MiB it is aligned to a cache
// line.
void* newElements(size_t count, size_t elementSize);

} // namespace hosts::oct
