// SPDX-License-Identifier: BSD-3-Clause
// Closing a file whose pending data cannot be written: a full disk, a _FillValue of another type.
// When nc_close of release 4.9.0 flushes such a file itself and fails, it either frees the file's
// state, so that the next use of the identifier crashes, or loses the data silently.
#pragma once

namespace Ovard::gridio {

// Ends define mode of a writable file, and flushes its data (nc_enddef, nc_sync). Returns the
// status of the first failure; the file is then still open and usable.
int flushBeforeClose(int ncid);

} // namespace Ovard::gridio
