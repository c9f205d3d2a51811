// SPDX-License-Identifier: BSD-3-Clause
// One row of the operation table, and the type of its handler.
#pragma once

#include "vx/array.h"

#include <cstdint>

namespace Ovard::gridio {

struct OperationEntry;

// Called with the arguments after the operation's name, nargs of them (as many as the row asks
// for), and with the row itself. Sets plhs[0], plhs[1], ... without regard to nlhs. Reads arguments
// strictly left to right, so that the first bad one is reported; raises through vxErrMsgId.
using HandlerFunction = void(int nlhs, vxArray* plhs[], int nargs, const vxArray* args[],
                             const OperationEntry* entry);
using Handler = HandlerFunction*;

struct OperationEntry {
    std::int32_t code;   // identifies the operation to a handler that serves several
    const char* name;    // as scripts write it, case-sensitive
    std::uint32_t nargs; // arguments expected after the name
    Handler handler;
};

} // namespace Ovard::gridio
