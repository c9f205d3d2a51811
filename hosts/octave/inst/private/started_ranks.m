## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{ranks}, @var{rank}, @var{size}] =} started_ranks ()
## Undocumented internal function: this process among those that a launcher of MPI started, by the library that the launcher
## belongs to, and the tags of the messages of one reduction.
## @end deftypefn

function [ranks, rank, size] = started_ranks ()

  persistent calls = 0;
  name = getenv ("GRIDIO_MPI"); # for launchers that leave no sign
  if (isempty (name))
    if (! isempty (getenv ("OMPI_COMM_WORLD_SIZE")))
      name = "openmpi";
    elseif (! isempty (getenv ("PMI_RANK")))
      name = "mpich";
    elseif (! isempty (getenv ("PMIX_RANK")))
      name = "openmpi";
    else
      fail ("noLauncher", ["place \"mpi\" needs a launcher, which starts the script several times: mpirun -n 4 octave-cli " ...
                           "SCRIPT, or srun --mpi=pmix or --mpi=pmi2 within a job of Slurm"]);
    endif
  endif
  mpi = ["__gridio_" name "__"];
  if (! any (exist (mpi) == [2, 3]))
    fail ("noMpi", ["this gridio was built without the MPI library '%s'; install its development files (Debian: " ...
                    "libopenmpi-dev, libmpich-dev) and build it again"], visible_text (name));
  endif
  if (! feval (mpi, "isOwn"))
    fail ("noMpi", ["this interpreter has loaded another MPI library, whose functions take the place of those of '%s'; start the " ...
                    "script by the launcher of the other one"], visible_text (name));
  endif
  [rank, size] = feval (mpi, "start");
  if (calls == 0)
    atexit ("__gridio_end_ranks__");
    sigterm_dumps_octave_core (false); # the launcher ends all ranks in one folder
  endif
  tags = 16 * mod (++calls, 1000);
  ranks = struct ("mpi", mpi, "rank", rank, "size", size, "leaving", 1, "partial", tags + 2, "failed", tags + 3, ...
                  "outcome", tags + 4, "begins", tags + 5);

endfunction
