// SPDX-License-Identifier: BSD-3-Clause
// The names of the netCDF library's status codes.
#pragma once

#include <map>
#include <string>

namespace Ovard::gridio {

// Status code to name, sorted by code; built when the module loads.
extern const std::map<int, std::string> errorCodeNames;

} // namespace Ovard::gridio
