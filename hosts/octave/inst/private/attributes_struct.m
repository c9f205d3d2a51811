## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{s} =} attributes_struct (@var{attributes})
## Undocumented internal function: rows of names and values as a struct.
## @end deftypefn

function s = attributes_struct (attributes)

  s = struct ();
  for k = 1:rows (attributes)
    s.(attributes{k,1}) = attributes{k,2};
  endfor

endfunction
