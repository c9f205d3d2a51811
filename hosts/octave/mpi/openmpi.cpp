// SPDX-License-Identifier: BSD-3-Clause
// The function that gridio_reduce calls under Open MPI.
#include "ranks.h"

#include <octave/oct.h>

// The interpreter finds the function by this symbol.
extern "C" __attribute__((visibility("default"))) octave_function*
G__gridio_openmpi__(const octave::dynamic_library& library, bool isRelative);

DEFUN_DLD(__gridio_openmpi__, args, , R"(-*- texinfo -*-
@deftypefn {} {[@dots{}] =} __gridio_openmpi__ (@var{operation}, @dots{})
Undocumented internal function: messages between the ranks of Open MPI.
@end deftypefn)")
{
    return hosts::oct::mpi::call(args);
}
