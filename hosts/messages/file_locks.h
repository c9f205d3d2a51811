// SPDX-License-Identifier: BSD-3-Clause
// Whether a file is open in this session, or locked by another program.
#pragma once

#include "hosts/messages/file_contents.h"

#include <string>

namespace hosts::messages {

// That the library has the very file open in this process, as a netCDF-4 file, and so that it can
// be opened neither for writing (it is open for reading) nor to be created anew.
std::string findOpenHere(const std::string& path, bool forCreating);

// That a lock is held which HDF5 would not share: for reading a writer's, for writing anyone's.
// path: as messages show it. Tries the same lock for a moment, through a descriptor of its own, so
// that no lock of this process is lost.
std::string findLock(const LookedAtFile& file, const std::string& path, bool forWriting);

// How many files the library has open. It has numbers for mostOpenFiles.
constexpr int mostOpenFiles = 65535;
int openFileCount();

} // namespace hosts::messages
