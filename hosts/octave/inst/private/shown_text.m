## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{shown} =} shown_text (@var{value})
## Undocumented internal function: what a user gave, for a message; its class where it is no text.
## @end deftypefn

function shown = shown_text (value)

  if (ischar (value) && rows (value) <= 1)
    shown = visible_text (value);
  elseif (isnumeric (value) && isscalar (value))
    shown = sprintf ("%g", value);
  elseif (iscellstr (value))
    shown = sprintf ("{%s}", strjoin (cellfun (@visible_text, value(:)', "UniformOutput", false), ", "));
  else
    shown = sprintf ("%s of class %s", strjoin (arrayfun (@num2str, size (value), "UniformOutput", false), "x"), ...
                     class (value));
  endif

endfunction
