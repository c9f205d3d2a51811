// SPDX-License-Identifier: BSD-3-Clause
// The function that gridio_reduce calls under MPICH.
#include "ranks.h"

#include <octave/oct.h>

// The interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
G__gridio_mpich__(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(__gridio_mpich__, args, , R"(-*- texinfo -*-
@deftypefn {} {[@dots{}] =} __gridio_mpich__ (@var{operation}, @dots{})
Undocumented internal function: messages between the ranks of MPICH.
@end deftypefn)")
{
    return hosts::oct::mpi::call(args);
}
