// SPDX-License-Identifier: BSD-3-Clause
// Why a path cannot be opened or created, as far as the operating system tells.
#pragma once

#include <string>

namespace hosts::messages {

enum class Purpose { reading, writing, creating };

// Sentences that name the path as it was resolved, or nothing when nothing was found. Writes
// nothing.
std::string findPathProblem(const std::string& path, Purpose purpose);

// That the file system of the path is full, or the session may not write so large a file.
std::string findNoSpace(const std::string& path);

// That the session may not open any more descriptors.
std::string findNoDescriptors();

// With the folder resolved: "/home/me/data/field.nc" for "data/field.nc". The path itself when its
// folder does not exist.
std::string resolvedPath(const std::string& path);

bool isAddress(const std::string& path);

} // namespace hosts::messages
