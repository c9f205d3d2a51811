## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} end_definitions (@var{ncid})
## Undocumented internal function: end define mode, where the format of the file needs it.
## @end deftypefn

function end_definitions (ncid)

  if (needs_define_mode (ncid))
    gridio ("endDef", ncid);
  endif

endfunction
