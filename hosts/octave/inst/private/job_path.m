## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{path} =} job_path (@var{folder}, @var{name}, @var{what})
## Undocumented internal function: a file of a reduction by Slurm.
## @end deftypefn

function path = job_path (folder, name, what)

  path = fullfile (folder, ["job-" name "-" what]);

endfunction
