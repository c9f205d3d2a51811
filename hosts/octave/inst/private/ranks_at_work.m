## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} ranks_at_work (@var{what}, @dots{})
## Undocumented internal function: remember the reduction under MPI that this process is in, and its bin.  When the session
## ends, wait for the other ranks; but in a reduction, as when the launcher ends all ranks since one has died, say what each
## was at.
## @end deftypefn

function ranks_at_work (what, varargin)

  persistent ranks = [];
  persistent question = [];
  persistent bin = 0;
  persistent isAtWork = false;
  switch (what)
    case "begin"
      [ranks, question] = varargin{:};
      isAtWork = true;
    case "bin"
      bin = varargin{1};
    case "end"
      isAtWork = false;
    case "exit"
      if (isAtWork)
        report (ranks, question, bin);
      elseif (! isempty (ranks))
        feval (ranks.mpi, "stop", ranks.leaving);
      endif
  endswitch

endfunction

function report (ranks, question, bin)

  files = @(k) range_of_files (question.files(question.edges(k+1)+1:question.edges(min (k+1, question.count)+1)));
  say = @(rank, k) fprintf (stderr (), "gridio_reduce: rank %d of %d was at %s\n", rank, ranks.size, files (k));
  if (bin < question.count)
    say (ranks.rank, bin);
  endif
  if (ranks.rank == 0)
    at = zeros (1, 0);
    while (feval (ranks.mpi, "probe", -1, ranks.begins))
      [bytes, from] = feval (ranks.mpi, "receive", -1, ranks.begins);
      at(from) = unpack_value (bytes) + 1;
    endwhile
    for rank = find (at)
      say (rank, at(rank) - 1);
    endfor
  endif

endfunction
