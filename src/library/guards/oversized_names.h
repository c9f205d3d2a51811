// SPDX-License-Identifier: BSD-3-Clause
// Names in classic files that are longer than NC_MAX_NAME. Release 4.9.0 copies such a name whole
// into the caller's buffer, without reporting its length first.
#pragma once

namespace Ovard::gridio {

// A buffer for one name of a dimension, a variable or an attribute, shared by all calls. Only
// address space is reserved; pages are committed when they are written. Throws std::bad_alloc when
// there is no address space.
char* nameBuffer();

} // namespace Ovard::gridio
