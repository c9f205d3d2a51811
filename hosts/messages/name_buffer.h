// SPDX-License-Identifier: BSD-3-Clause
// The buffer for names that the library writes while a message is composed.
#pragma once

#include <string>

namespace hosts::messages {

// A buffer for one name, shared by all calls; null if there is not enough address space. The
// library copies names of classic files whole, without reporting their length first, and a hostile
// file may have one of half a gibibyte. Only address space is reserved.
char* nameBuffer();

// The name that the library wrote there, cut to the length that a message may show.
std::string bufferedName();

} // namespace hosts::messages
