// SPDX-License-Identifier: BSD-3-Clause
// Why a path cannot be opened or created, as far as the operating system shows.
#pragma once

#include <string>

namespace hosts::messages {

enum class Purpose { reading, writing, creating };

// Sentences that name the resolved path, or an empty text if nothing was found. Writes nothing.
std::string findPathProblem(const std::string& path, Purpose purpose);

// Reports that the file system of the path is full, or that the session may not write such a large
// file.
std::string findNoSpace(const std::string& path);

// Reports that the session may not open any more descriptors.
std::string findNoDescriptors();

// The path with its folder resolved: "/home/me/data/field.nc" for "data/field.nc"; unchanged if its
// folder does not exist.
std::string resolvedPath(const std::string& path);

bool isAddress(const std::string& path);

} // namespace hosts::messages
