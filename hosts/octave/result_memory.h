// SPDX-License-Identifier: BSD-3-Clause
// Memory that the interpreter can own as an array's storage.
#pragma once

#include <cstddef>

namespace hosts::oct {

// A block of ::operator new holding anything. A large one asks for huge pages: touching fresh small
// pages one by one takes more time than most reads.
void* newElements(size_t count, size_t elementSize);

} // namespace hosts::oct
