## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{text} =} attribute_text (@var{attributes}, @var{name})
## Undocumented internal function: the text of an attribute without blanks and NULs at its ends; empty if there is none, or no
## text.
## @end deftypefn

function text = attribute_text (attributes, name)

  [~, text] = attribute_value (attributes, name);
  if (iscellstr (text) && numel (text) == 1)
    text = text{1};
  endif
  if (! ischar (text))
    text = "";
  endif
  text = readable_text (strtrim (text(:)'));

endfunction
