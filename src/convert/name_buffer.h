// SPDX-License-Identifier: BSD-3-Clause
// Where the library writes a name of a dimension, a variable or an attribute.
#pragma once

namespace Ovard::gridio {

// Room for one name, the same at every call. Far larger than NC_MAX_NAME, which binds nobody who
// writes a classic file: the library copies a longer name whole, and tells no length beforehand. It
// takes addresses, and memory only as far as it is written.
char* nameBuffer();

} // namespace Ovard::gridio
