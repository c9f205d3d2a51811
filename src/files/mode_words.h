// SPDX-License-Identifier: BSD-3-Clause
// The mode argument of the opening operations: a number, or a word.
#pragma once

#include "vx/array.h"

namespace Ovard::gridio {

// The mode flags for the library. A char array is one word of a fixed table, in any case; of an
// int32 or double array the first element counts, a double truncated by truncateToInt32, and
// deliberately nothing else is checked. Raises argumentIsEmptySet("MODE"), badModeDatatype, or
// unrecognizedFileMode with the word in upper case.
int readModeArgument(const vxArray* a);

} // namespace Ovard::gridio
