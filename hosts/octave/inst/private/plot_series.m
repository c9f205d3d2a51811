## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {} plot_series (@var{values}, @var{along}, @var{at})
## Undocumented internal function: draw values along one axis; along levels as a profile.
## @end deftypefn

function plot_series (values, along, at)

  heading = plot_heading (at);
  label = at.about.variable;
  if (! isempty (at.about.units))
    label = sprintf ("%s (%s)", label, at.about.units);
  endif
  isProfile = strcmp (along.role, "level");
  top = 0.06 + 0.045 * numel (heading);
  ylines = wrapped (merge (isProfile, along.label, label), floor (55 * (0.86 - top)));
  left = 0.1 + 0.035 * numel (ylines);
  frame = axes ("position", [left, 0.14, 0.94 - left, 0.86 - top]);
  style = {"-", "color", [0.12, 0.35, 0.6], "linewidth", 1.5};
  if (numel (values) <= 100 || sum (isfinite (values)) < 3)
    style = [style, {"marker", ".", "markersize", 12}];
  endif
  values(! isfinite (values)) = NaN;
  limits = value_limits (values);
  limits += [-0.04, 0.04] * diff (limits);
  ends = sort (along.values([1 end])');
  if (isProfile)
    plot (frame, values, along.values, style{:});
    set (frame, "ydir", merge (along.isDown, "reverse", "normal"), "xlim", limits, "ylim", ends);
    set_label (frame, "xlabel", wrapped (label, 70));
  else
    plot (frame, along.values, values, style{:});
    set (frame, "ylim", limits, "xlim", ends);
    dates_on_axis (frame, "x", along);
    set_label (frame, "xlabel", wrapped (along.label, 70));
  endif
  grid (frame, "on");
  set_label (frame, "ylabel", ylines);
  set_label (frame, "title", heading);

endfunction
