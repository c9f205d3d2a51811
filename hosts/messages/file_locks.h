// SPDX-License-Identifier: BSD-3-Clause
// Whether a file is open in this session, or locked by another program.
#pragma once

#include "hosts/messages/file_contents.h"

#include <string>

namespace hosts::messages {

// Reports that this process has the same netCDF-4 file open, so that it can be neither opened for
// writing (if it is open for reading) nor created anew.
std::string findOpenHere(const std::string& path, bool forCreating);

// Reports that a lock is held with which HDF5's would conflict: for reading a writer's lock, for
// writing any. path: as messages show it. Tries the same lock briefly, through its own descriptor,
// so that no lock of this process is lost.
std::string findLock(const LookedAtFile& file, const std::string& path, bool forWriting);

// How many files the library has open; it can have at most mostOpenFiles.
constexpr int mostOpenFiles = 65535;
int openFileCount();

} // namespace hosts::messages
