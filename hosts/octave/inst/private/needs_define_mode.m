## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{isNeeded} =} needs_define_mode (@var{ncid})
## Undocumented internal function: whether the format of a file has a define mode that does not change by itself.
## @end deftypefn

function isNeeded = needs_define_mode (ncid)

  isNeeded = ! strcmp (file_format (ncid), "netCDF-4");

endfunction
