// SPDX-License-Identifier: BSD-3-Clause
// Where a fuzzing process keeps its files: a new folder, in memory where the system has such.
#pragma once

#include <string>

namespace fuzz {

// Its path. Made when first asked for, when it also bounds the size of the files that the process
// can write to 4 MiB; removed when the process ends.
const std::string& scratchFolder();

// Goes on with another folder: for when the library holds on to the names of the one that was.
void replaceScratchFolder();

} // namespace fuzz
