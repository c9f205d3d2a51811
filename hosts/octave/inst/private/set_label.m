## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} set_label (@var{axes}, @var{which}, @var{lines})
## Undocumented internal function: set the title or the label of an axis as it is written, in smaller letters if it is long.
## @end deftypefn

function set_label (axes_, which, lines)

  size_ = [13, 13, 12, 11, 10, 9](min (max (numel (lines), 1), 6));
  if (! strcmp (which, "title"))
    size_ -= 1;
  endif
  if (strcmp (graphics_toolkit (ancestor (axes_, "figure")), "gnuplot"))
    lines = for_gnuplot (lines);
  endif
  feval (which, axes_, lines, "interpreter", "none", "fontsize", size_, "fontweight", "normal");

endfunction

## The interpreter hands texts to gnuplot within double quotes, as they are: a quote would end them, a backslash would take
## the next character, a line break would end the command, and what is between back quotes would be run by the shell.
function text = for_gnuplot (lines)

  lines = strrep (strrep (strrep (lines, "\\", "\\\\"), "\"", "\\\""), "`", "'");
  text = strjoin (lines, "\\\\n"); # strjoin takes escape sequences itself

endfunction
