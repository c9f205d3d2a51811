## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} __gridio_reduce_worker__ (@var{place}, @var{folder}, @dots{})
## Undocumented internal function: what the processes run that @code{gridio_reduce} starts.
## @end deftypefn

function __gridio_reduce_worker__ (place, folder, varargin)

  sigterm_dumps_octave_core (false);
  sighup_dumps_octave_core (false);
  switch (place)
    case "cores"
      work_on_ranges (folder);
    otherwise
      work_on_task (place, folder, varargin{:});
  endswitch

endfunction
