## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} plot_field (@var{grid}, @var{at})
## Undocumented internal function: draw a field as an indexed image, missing values grey, with a colour scale beside it.
## @end deftypefn

## The image is indexed, and the scale has axes of its own, because a headless figure comes out wrong otherwise.
function plot_field (grid, at)

  limits = value_limits (grid.values);
  share = (grid.values - limits(1)) / diff (limits);
  share(! isfinite (grid.values)) = 0;
  index = 2 + min (floor (255 * share), 254);
  index(! isfinite (grid.values)) = 1;
  colormap ([0.75, 0.75, 0.75; viridis(255)]);

  heading = plot_heading (at);
  top = 0.06 + 0.045 * numel (heading);
  ylines = wrapped (grid.y.label, floor (55 * (0.86 - top)));
  left = 0.1 + 0.035 * numel (ylines);
  units = wrapped (at.about.units, floor (55 * (0.86 - top)));
  right = 0.15 + 0.035 * numel (units);
  frame = [left, 0.14, 1 - left - right, 0.86 - top];
  field = axes ("position", frame);
  image (grid.x.values([1 end]), grid.y.values([1 end]), index);
  set (field, "ydir", merge (grid.y.isDown, "reverse", "normal"), "layer", "top", "tickdir", "out");
  axis (field, "tight");
  dates_on_axis (field, "x", grid.x);
  dates_on_axis (field, "y", grid.y);
  set_label (field, "xlabel", wrapped (grid.x.label, 70));
  set_label (field, "ylabel", ylines);
  set_label (field, "title", heading);

  scale = axes ("position", [frame(1) + frame(3) + 0.03, frame(2), 0.03, frame(4)]);
  image (1, linspace (0, 1, 255), (2:256)');
  [ticks, texts] = round_ticks (limits, 6);
  set (scale, "ydir", "normal", "xtick", [], "yaxislocation", "right", "tickdir", "out", ...
       "ytick", (ticks - limits(1)) / diff (limits), "yticklabel", texts);
  axis (scale, "tight");
  set_label (scale, "ylabel", units);
  set (gcf (), "currentaxes", field);

endfunction
