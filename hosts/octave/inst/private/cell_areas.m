## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{areas}, @var{places}] =} cell_areas (@var{file}, @var{number})
## Undocumented internal function: the areas of a variable's cells in square metres: the variable that its attribute
## cell_measures names, or else those between the bounds of longitude and latitude on a sphere of radius 6371 km.  The
## second result has the places of their dimensions among the variable's.
## @end deftypefn

function [areas, places] = cell_areas (file, number)

  d = file.d;
  dimensions = variable_shape (file, number).dimensions;
  [areas, mine] = measured_areas (file, number);
  if (isempty (areas))
    [lon, ~] = find_coordinate (file, number, "lon");
    [lat, ~] = find_coordinate (file, number, "lat");
    lonDimensions = variable_shape (file, lon).dimensions;
    latDimensions = variable_shape (file, lat).dimensions;
    if (numel (lonDimensions) == 1 && numel (latDimensions) == 1 && lonDimensions != latDimensions)
      areas = widths (bounds_of (file, lon)) * heights (bounds_of (file, lat))';
      mine = [lonDimensions, latDimensions];
    else
      areas = polygon_areas (stored_corners (file, lon), stored_corners (file, lat));
      mine = lonDimensions;
    endif
    radius = 6371000;
    areas *= radius ^ 2;
  endif
  places = arrayfun (@(k) find (dimensions == k), mine);
  [places, order] = sort (places);
  if (numel (places) > 1)
    areas = permute (areas, order);
  endif

endfunction

function [areas, mine] = measured_areas (file, number)

  d = file.d;
  areas = mine = [];
  name = regexp (attribute_text (d.variables.attributes{number}, "cell_measures"), 'area:\s*(\S+)', "tokens", "once");
  k = [];
  if (! isempty (name))
    k = in_scope (d, d.variables.group(number), name{1});
  endif
  if (isempty (k))
    return;
  endif
  mine = variable_shape (file, k).dimensions;
  areas = double (read_positions (file, k, {}));
  switch (attribute_text (d.variables.attributes{k}, "units"))
    case {"km2", "km^2", "km**2"}
      areas *= 1e6;
  endswitch

endfunction

function corners = stored_corners (file, k)

  corners = stored_bounds (file, k);
  if (isempty (corners) || rows (corners) < 3)
    fail ("noBounds", "the cells of '%s' have no area: the variable has no stored bounds with their corners", ...
          visible_text (file.d.variables.path{k}));
  endif

endfunction

## In radians, the shorter way round unless a cell is a whole circle.
function w = widths (bounds)

  w = abs (diff (bounds))(:);
  w(w > 360) = mod (w(w > 360), 360);
  w *= pi / 180;

endfunction

function h = heights (bounds)

  h = abs (diff (sind (bounds)))(:);

endfunction

## Areas on the unit sphere of polygons whose corners are in the rows, by the integral of sine over longitude along each side.
function areas = polygon_areas (lons, lats)

  shape = size (lons);
  nextLons = circshift (lons, -1, 1);
  nextLats = circshift (lats, -1, 1);
  turns = mod (nextLons - lons + 180, 360) - 180;
  turns *= pi / 180;
  areas = abs (sum (mean_sine (lats, nextLats) .* turns, 1));
  areas = reshape (areas, [shape(2:end), 1]);

endfunction

## The mean of the sine along a side that is straight in longitude and latitude.
function m = mean_sine (from, to)

  from *= pi / 180;
  to *= pi / 180;
  half = (to - from) / 2;
  factor = ones (size (half));
  isLong = abs (half) > 1e-8;
  factor(isLong) = sin (half(isLong)) ./ half(isLong);
  m = sin ((from + to) / 2) .* factor;

endfunction
