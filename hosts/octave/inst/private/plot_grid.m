## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{grid} =} plot_grid (@var{x}, @var{names}, @var{at})
## Undocumented internal function: values along two dimensions as a picture has them: a struct of the axes x and y and of
## values, whose rows lie along y, both axes evenly spaced and ascending.
## @end deftypefn

function grid = plot_grid (x, names, at)

  about = at.about.coordinates;
  isBoth = arrayfun (@(one) numel (one.dimensions) == 2 && all (ismember (one.dimensions, names)), about);
  roles = {about.role};
  lon = about(isBoth & strcmp (roles, "lon"));
  lat = about(isBoth & strcmp (roles, "lat"));
  level = about(isBoth & strcmp (roles, "level"));
  if (! isempty (lon) && ! isempty (lat))
    grid = box_means (turned (at, lon(1), names), turned (at, lat(1), names), x);
    grid.x.label = axis_label (lon(1));
    grid.y.label = axis_label (lat(1));
  elseif (! isempty (level))
    grid = at_depths (x, names, turned (at, level(1), names), level(1), at);
  else
    grid = regular_grid (x, plot_axis (at, names{1}), plot_axis (at, names{2}));
  endif

endfunction

## The values of a coordinate in the order of the dimensions of the field.
function values = turned (at, one, names)

  values = double (at.(one.name));
  if (! strcmp (one.dimensions{1}, names{1}))
    values = values';
  endif

endfunction

## Longitudes and times go to the right, levels down or up, latitudes up.
function grid = regular_grid (x, first, second)

  order = {"lon", "time", "", "lat", "level"};
  if (find (strcmp (first.role, order)) > find (strcmp (second.role, order)) ...
      || (strcmp (first.role, "time") && strcmp (second.role, "lon")))
    [first, second] = deal (second, first);
    x = x';
  endif
  if (strcmp (first.role, "lat") && isempty (second.role))
    [first, second] = deal (second, first);
    x = x';
  endif
  [first, columns_] = even_axis (first);
  [second, rows_] = even_axis (second);
  grid = struct ("x", first, "y", second, "values", x(columns_,rows_)');

endfunction

## Profiles whose levels differ from one to the next, interpolated to the same levels.
function grid = at_depths (x, names, depths, about, at)

  along = names{1};
  of_profiles = arrayfun (@(one) isscalar (one.dimensions) && ! strcmp (one.role, "level"), at.about.coordinates);
  across = [at.about.coordinates(of_profiles).dimensions, names(2)]{1};
  if (strcmp (across, names{1}))
    along = names{2};
    x = x';
    depths = depths';
  else
    across = names{2};
  endif
  isKnown = isfinite (x) & isfinite (depths);
  low = min (depths(isKnown));
  high = max (depths(isKnown));
  levels = linspace (low, high, 300)';
  values = NaN (300, columns (x));
  for p = 1:columns (x)
    [z, order] = unique (depths(isKnown(:,p),p));
    if (numel (z) > 1)
      values(:,p) = interp1 (z, x(isKnown(:,p),p)(order), levels);
    endif
  endfor
  [profiles, columns_] = even_axis (plot_axis (at, across));
  y = struct ("values", levels, "label", axis_label (about), "role", "level", "isDate", false, ...
              "isDown", goes_down (about), "name", about.name);
  grid = struct ("x", profiles, "y", y, "values", values(:,columns_));

endfunction
