// SPDX-License-Identifier: BSD-3-Clause
// Messages between the ranks of a script that mpirun or srun started, for gridio_reduce. It is
// built once for each MPI library, as an oct-file of its own, so that gridio.oct needs none.
#pragma once

#include <octave/oct.h>

namespace hosts::oct::mpi {

// [rank, size] = f ("start")                       initialises MPI once
// isSent = f ("send", bytes, rank, tag, watched)   false if a message with the tag WATCHED from the
// rank comes first f ("post", bytes, rank, tag)                     sends a short message without
// waiting [bytes, rank, tag] = f ("receive", rank, tags)   waits for a message with one of the
// tags; rank -1 is any yes = f ("probe", rank, tags)                    whether such a message has
// arrived bytes = f ("broadcast", bytes, size)             rank 0's bytes, on all ranks, which know
// how many they are f ("stop", tag)                                  sends the others this tag, as
// this rank ends, and waits for them Waits let Ctrl-C through and leave the processor to others.
// Failures are errors of the interpreter.
octave_value_list call(const octave_value_list& args);

} // namespace hosts::oct::mpi
