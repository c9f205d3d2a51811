## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{text} =} grouped (@var{number})
## Undocumented internal function: a whole number with commas between its thousands.
## @end deftypefn

function text = grouped (number)

  text = fliplr (regexprep (fliplr (sprintf ("%d", number)), '(\d{3})(?=\d)', '$1,'));

endfunction
