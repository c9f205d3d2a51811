## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shown} =} shown_request (@var{value})
## Undocumented internal function: what was selected, for a message.
## @end deftypefn

function shown = shown_request (value)

  if (isnumeric (value))
    shown = mat2str (double (value(:)'), 8);
  else
    shown = shown_text (value);
  endif

endfunction
