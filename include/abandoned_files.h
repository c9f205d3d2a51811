// SPDX-License-Identifier: BSD-3-Clause
// Files that nothing may ask the library about.
#pragma once

namespace Ovard::gridio {

// Whether the identifier is that of a file, or of one of its groups, that the library tore down but
// failed to close: it crashes on many questions about such a file.
bool isAbandonedFile(int ncid);

} // namespace Ovard::gridio
