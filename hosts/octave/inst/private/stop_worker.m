## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} stop_worker (@var{worker})
## Undocumented internal function: end a worker at once, which leaves nothing half-made under its name.
## @end deftypefn

function stop_worker (worker)

  [~, ~] = kill (worker.pid, SIG ().KILL);
  fclose (worker.input);
  fclose (worker.output);
  [~, ~] = waitpid (worker.pid);

endfunction
