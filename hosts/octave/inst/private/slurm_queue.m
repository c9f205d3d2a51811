## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{states} =} slurm_queue (@var{jobs})
## Undocumented internal function: the states of those jobs that have not ended, and of each task of an array.
## @end deftypefn

function states = slurm_queue (jobs)

  states = {};
  for job = jobs(:)'
    [status, said] = system ([shell_words({"squeue", "--noheader", "--array", "--format=%T", "--jobs", job{1}}) " 2>&1"]);
    if (status == 0)
      states = [states, ostrsplit(strtrim (said), "\n", true)];
    elseif (isempty (strfind (said, "Invalid job id")))
      states{end+1} = "UNKNOWN"; # the controller cannot be reached for now
    endif
  endfor

endfunction
