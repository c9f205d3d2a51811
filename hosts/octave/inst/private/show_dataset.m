## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} show_dataset
## Undocumented internal function: print.
## @end deftypefn

function show_dataset (file, group)
  d = file.d;
  printf ("dataset %s (%s)\n", file.path, d.format);
endfunction
