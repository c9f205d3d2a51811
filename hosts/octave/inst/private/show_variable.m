## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} show_variable
## Undocumented internal function: print.
## @end deftypefn

function show_variable (file, number)
  printf ("variable %s\n", file.d.variables.path{number});
endfunction
