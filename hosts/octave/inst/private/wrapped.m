## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{lines} =} wrapped (@var{text}, @var{width})
## Undocumented internal function: a text in lines of at most so many characters, broken at blanks or, in long words, after
## any character.  Control characters are spelled out.
## @end deftypefn

function lines = wrapped (text, width)

  lines = {};
  line = "";
  if (isempty (text))
    return;
  endif
  for word = ostrsplit (visible_text (strtrim (regexprep (text, '\s+', " "))), " ")
    word = word{1};
    if (! isempty (line) && numel (line) + 1 + numel (word) > width)
      lines{end+1} = line;
      line = "";
    endif
    if (! isempty (line))
      word = [line " " word];
    endif
    while (numel (word) > width)
      cut = width - find (bitand (fliplr (double (word(1:width+1))), 192) != 128, 1) + 1; # before a character of UTF-8
      lines{end+1} = word(1:cut);
      word = word(cut+1:end);
    endwhile
    line = word;
  endfor
  if (! isempty (line))
    lines{end+1} = line;
  endif

endfunction
