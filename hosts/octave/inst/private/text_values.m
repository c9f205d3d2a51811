## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{values} =} text_values (@var{values}, @var{width})
## Undocumented internal function: a cell array of texts as characters, with their length as the first dimension, padded by
## NUL.  @var{width} is that length, or 0 for that of the longest.
## @end deftypefn

function values = text_values (texts, width)

  longest = max ([1; cellfun(@numel, texts(:))]);
  if (width == 0)
    width = longest;
  elseif (longest > width)
    fail ("doNotFit", "a text of %d characters does not fit into %d; nothing was written", longest, width);
  endif
  values = repmat ("\0", [width, size(texts)]);
  for i = 1:numel (texts)
    values(1:numel (texts{i}),i) = texts{i};
  endfor

endfunction
