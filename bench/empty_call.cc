// SPDX-License-Identifier: BSD-3-Clause
// Native functions of the interpreter that do nothing: what any call costs, and what it costs to
// return results, made as the interpreter makes them.
#include <octave/oct.h>

// clang-format off
DEFUN_DLD(empty_call, , , "Do nothing.") { return octave_value_list(); }
DEFUN_DLD(number_call, , , "Return a number.") { return ovl(1.0); }
DEFUN_DLD(text_call, , , "Return text.") { return ovl("degrees_north"); }
DEFUN_DLD(column_call, , , "Return 100 numbers.") { return ovl(NDArray(dim_vector(100, 1))); }
DEFUN_DLD(name_and_number_call, , , "Return text and a number.") { return ovl("latitude", 1.0); }
DEFUN_DLD(four_call, , , "Return as inqVar does.") { return ovl("v3", 1.0, 1.0, 0.0); }
// clang-format on
