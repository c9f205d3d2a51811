## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} begin_definitions (@var{ncid})
## Undocumented internal function: put a file into define mode, where its format needs it.
## @end deftypefn

function begin_definitions (ncid)

  if (needs_define_mode (ncid))
    gridio ("redef", ncid);
  endif

endfunction
