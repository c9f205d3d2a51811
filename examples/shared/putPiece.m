% SPDX-License-Identifier: BSD-3-Clause

% putPiece (TEXT, INDENT): prints text that stays whole: on a new line where the line would become too
% long. As in ncdump, only such pieces count for the length of a line, whatever else was printed between them.
function putPiece (text, indent)
  persistent column = 0;
  if (numel (text) + column > 78 && numel (text) > 2)
    printf ("\n%s    ", indent);
    column = 4 + numel (indent);
  endif
  puts (text);
  column += numel (text);
  if (text(end) == "\n")
    column = numel (indent);
  endif
endfunction
