## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{text} =} title_of (@var{attributes})
## Undocumented internal function: what a variable is: its long_name, or else its standard_name.
## @end deftypefn

function text = title_of (attributes)

  text = attribute_text (attributes, "long_name");
  if (isempty (text))
    text = attribute_text (attributes, "standard_name");
  endif

endfunction
