## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{figure} =} plot_values (@var{x}, @var{at})
## Undocumented internal function: draw values with their coordinates, as @code{at} gives both, into the current figure.
## @end deftypefn

function fig = plot_values (x, at)

  if (! (isnumeric (x) || islogical (x)) || iscomplex (x))
    fail ("notDrawable", "'%s' cannot be drawn: its values are not numbers but of class %s", shown_text (at.about.variable), ...
          class (x));
  elseif (! any (isfinite (x(:))))
    fail ("notDrawable", "'%s' cannot be drawn: there is no value, only missing ones", shown_text (at.about.variable));
  endif
  names = at.about.dimensions;
  lengths = cellfun (@(name) numel (at.(name)), names);
  if (prod (lengths) != numel (x))
    fail ("notDrawable", "the values, of size %s, are not those whose coordinates are given", mat2str (size (x)));
  endif
  kept = names(lengths > 1);
  x = reshape (double (x), [lengths(lengths > 1), 1, 1]);
  fig = empty_figure ();
  switch (numel (kept))
    case 1
      plot_series (x(:), plot_axis (at, kept{1}), at);
    case 2
      plot_field (plot_grid (x, kept, at), at);
    otherwise
      close (fig);
      fail ("notDrawable", "'%s' cannot be drawn along %d dimensions%s; select positions until one or two are left", ...
            shown_text (at.about.variable), numel (kept), merge (isempty (kept), "", [": " strjoin(kept, ", ")]));
  endswitch

endfunction

## The current figure, cleared, or a new one, which is not shown where there is no display.
function fig = empty_figure ()

  warning ("off", "Octave:gnuplot-graphics", "local");
  fig = get (0, "currentfigure");
  if (isempty (fig))
    hasDisplay = ispc () || ismac () || ! (isempty (getenv ("DISPLAY")) && isempty (getenv ("WAYLAND_DISPLAY")));
    fig = figure ("visible", merge (hasDisplay, "on", "off"));
  else
    clf (fig);
  endif

endfunction
