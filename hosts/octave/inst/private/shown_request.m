## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} shown_request
## Undocumented internal function: what was selected, for a message.
## @end deftypefn

function shown = shown_request (value)

  if (isnumeric (value))
    shown = mat2str (double (value(:)'), 8);
  else
    shown = shown_text (value);
  endif

endfunction
