// SPDX-License-Identifier: BSD-3-Clause
// Ending define mode of a classic file with an alignment of zero: release 4.9.0 divides by it when
// it places a variable.
#pragma once

namespace Ovard::gridio {

// Whether nc__enddef of this file would divide by an alignment of zero.
bool dividesByAlignments(int ncid);

} // namespace Ovard::gridio
