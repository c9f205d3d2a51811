// SPDX-License-Identifier: BSD-3-Clause
// The folder for the files of a fuzzing process: a new one, in memory if the system supports it.
#pragma once

#include <string>

namespace fuzz {

// Its path. The first call creates it, and limits the files that the process can write to 4 MiB; it
// is removed when the process ends.
const std::string& scratchFolder();

// Switches to another folder, for when the library still has files of the previous one open.
void replaceScratchFolder();

} // namespace fuzz
