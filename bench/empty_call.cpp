// SPDX-License-Identifier: BSD-3-Clause
// A native function of the interpreter that does nothing: what any call costs.
#include <octave/oct.h>

DEFUN_DLD(empty_call, , , "Do nothing.") { return {}; }
