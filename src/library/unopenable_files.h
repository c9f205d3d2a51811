// SPDX-License-Identifier: BSD-3-Clause
// What must not be handed to nc_open: the library waits for a pipe's other end, past every signal.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the path is that of a pipe, a socket or a device. False for what does not exist and for
// addresses.
bool isPipeOrDevice(const std::string& path);

} // namespace Ovard::gridio
