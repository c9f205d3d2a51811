## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{row} =} attribute_row (@var{attributes}, @var{k})
## Undocumented internal function: an attribute's name and value as texts.
## @end deftypefn

function row = attribute_row (attributes, k)

  row = {visible_text(attributes{k,1}), value_words(attributes{k,2})};

endfunction

function words = value_words (value)

  if (ischar (value))
    words = strtrim (readable_text (value(:)'));
    words(ismember (words, "\n\r\t")) = " ";
    words = visible_text (words);
  elseif (iscellstr (value))
    words = strjoin (cellfun (@(text) ["\"" visible_text(text) "\""], value(:)', "UniformOutput", false), ", ");
  elseif (isnumeric (value) && numel (value) <= 100)
    words = strjoin (arrayfun (@number_words, value(:)', "UniformOutput", false), ", ");
  else
    words = shown_text (value);
  endif

endfunction

function words = number_words (value)

  if (isinteger (value))
    words = sprintf ("%d", value);
  elseif (isa (value, "single"))
    words = sprintf ("%.7g", value);
  else
    words = sprintf ("%.10g", value);
  endif

endfunction
