// SPDX-License-Identifier: BSD-3-Clause
// netCDF-4 files that HDF5 refuses to close. Release 4.9.0 has then torn the file down, but keeps
// its identifier, crashes on many uses of it, and never reuses it.
#pragma once

#include "abandoned_files.h"

namespace Ovard::gridio {

// nc_close. If it fails after it has torn the file down, the file is abandoned.
int closeOrAbandon(int ncid);

} // namespace Ovard::gridio
