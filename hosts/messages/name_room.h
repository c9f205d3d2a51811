// SPDX-License-Identifier: BSD-3-Clause
// Where the library writes a name while a message is made.
#pragma once

#include <string>

namespace hosts::messages {

// A buffer for one name, the same at every call; null when there are not so many addresses. The
// library copies what a classic file holds whole, without reporting its length first, and a hostile
// file may hold half a gibibyte. Only address space is reserved.
char* nameRoom();

// What the library wrote there, as far as a message may show it.
std::string nameInRoom();

} // namespace hosts::messages
