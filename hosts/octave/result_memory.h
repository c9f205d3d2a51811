// SPDX-License-Identifier: BSD-3-Clause
// Memory that the interpreter can own as an array's storage.
#pragma once

#include <cstddef>

namespace hosts::oct {

// A block that ::operator delete releases, holding anything.
void* newElements(size_t count, size_t elementSize);

} // namespace hosts::oct
