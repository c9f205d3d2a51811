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
  style = {"interpreter", "none", "fontsize", size_, "fontweight", "normal"};
  isGnuplot = strcmp (graphics_toolkit (ancestor (axes_, "figure")), "gnuplot");
  if (isGnuplot && strcmp (which, "ylabel") && numel (lines) > 1)
    ## Of a label of several lines, gnuplot draws the later ones over the numbers at the axis.
    isRight = strcmp (get (axes_, "yaxislocation"), "right");
    width = get (axes_, "position")(3);
    at = merge (isRight, 1 + 0.09 / width, -(0.065 + 0.026 * numel (lines)) / width);
    text (axes_, at, 0.5, for_gnuplot (lines), "units", "normalized", "rotation", 90, "horizontalalignment", "center", ...
          "verticalalignment", merge (isRight, "top", "bottom"), style{:});
  elseif (isGnuplot)
    feval (which, axes_, for_gnuplot (lines), style{:});
  else
    feval (which, axes_, lines, style{:});
  endif

endfunction

## The interpreter hands texts to gnuplot within double quotes, as they are: a quote would end them, a backslash would take
## the next character, a line break would end the command, and what is between back quotes would be run by the shell.
function text = for_gnuplot (lines)

  lines = strrep (strrep (strrep (lines, "\\", "\\\\"), "\"", "\\\""), "`", "'");
  text = strjoin (lines, "\\\\n"); # strjoin takes escape sequences itself

endfunction
