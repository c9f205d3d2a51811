// SPDX-License-Identifier: BSD-3-Clause
// Opening a pipe: release 4.9.0 waits for its other end, and no signal interrupts it.
#pragma once

#include <string>

namespace Ovard::gridio {

// Whether the path is that of a pipe, a socket or a device. False for what does not exist and for
// addresses.
bool isPipeOrDevice(const std::string& path);

} // namespace Ovard::gridio
