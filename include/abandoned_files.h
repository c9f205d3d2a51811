// SPDX-License-Identifier: BSD-3-Clause
// Files that must no longer be passed to the library.
#pragma once

namespace Ovard::gridio {

// Whether the identifier is that of a file, or of one of its groups, that the library tore down but
// failed to close: many calls crash on such a file.
bool isAbandonedFile(int ncid);

} // namespace Ovard::gridio
