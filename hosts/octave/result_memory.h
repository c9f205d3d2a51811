// SPDX-License-Identifier: BSD-3-Clause
// Memory that the interpreter can own as an array's storage.
#pragma once

#include <cstddef>

namespace hosts::oct {

// An uninitialised block that ::operator delete releases.
void* newElements(size_t count, size_t elementSize);

} // namespace hosts::oct
