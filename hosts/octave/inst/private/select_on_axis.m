## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{positions}, @var{values}] =} select_on_axis (@var{file}, @var{axis}, @var{request})
## Undocumented internal function: the positions along a one-dimensional coordinate that a selection means, and of
## longitudes their values as the selection counts them.
## @end deftypefn

function [positions, values] = select_on_axis (file, axis, request)

  if (numel (axis.dimensions) != 1)
    wrong_dimensions (axis);
  endif
  values = [];
  asked = asked_points (axis, request);
  switch (asked.kind)
    case "all"
      positions = 1:numel (axis.values);
    case "names"
      positions = positions_of_names (axis, asked.points);
    case "near"
      bounds = stored_bounds (file, axis.number);
      positions = zeros (1, numel (asked.points));
      for k = 1:numel (asked.points)
        positions(k) = nearest_position (axis, bounds, asked.points(k), request.within);
      endfor
      if (strcmp (axis.role, "lon"))
        values = near_longitudes (axis.values(positions)(:), asked.points(:));
      endif
    otherwise
      [positions, values] = positions_in_range (axis, asked);
  endswitch
  if (isempty (positions))
    fail ("emptySelection", "nothing of '%s' is within %s; it goes %s", visible_text (axis.name), ...
          shown_request (request.value), extent_of_axis (axis));
  endif

endfunction

function wrong_dimensions (axis)

  if (isempty (axis.dimensions))
    fail ("badSelection", "'%s' is one value for all the others, so nothing can be selected by it", ...
          visible_text (axis.name));
  endif
  fail ("badSelection", ["'%s' has %d dimensions; select a point or a box by longitude and latitude together, or positions" ...
                         " with \"index\""], visible_text (axis.name), numel (axis.dimensions));

endfunction

function positions = positions_of_names (axis, names)

  positions = zeros (1, numel (names));
  for k = 1:numel (names)
    position = find (strcmp (axis.values, strtrim (names{k})), 1);
    if (isempty (position))
      unknown_name ("emptySelection", "value", names{k}, axis.values, sprintf (" of '%s'", visible_text (axis.name)));
    endif
    positions(k) = position;
  endfor

endfunction

function position = nearest_position (axis, bounds, point, within)

  values = axis.values(:);
  isLongitude = strcmp (axis.role, "lon");
  distances = abs (values - point);
  if (isLongitude)
    distances = abs (mod (values - point + 180, 360) - 180);
  endif
  if (rows (bounds) == 2)
    isInside = is_in_cell (bounds, point, isLongitude);
    if (any (isInside))
      distances(! isInside) = Inf;
    endif
  endif
  [distance, position] = min (distances);
  isFar = isempty (distance) || isnan (distance);
  if (! isFar && ! isempty (within))
    isFar = distance > within + axis.tolerance;
  elseif (! isFar && ! (rows (bounds) == 2 && any (isInside)))
    isFar = distance > reach_of (values, point, isLongitude) + axis.tolerance;
  endif
  if (isFar && isfinite (distance) && ! isempty (within))
    fail ("emptySelection", "no point of '%s' is within %g of %s; the nearest is %s", visible_text (axis.name), within, ...
          shown_point (axis, point), shown_point (axis, values(position)));
  elseif (isFar)
    fail ("emptySelection", "no point of '%s' is near %s; it goes %s", visible_text (axis.name), ...
          shown_point (axis, point), extent_of_axis (axis));
  endif

endfunction

function isInside = is_in_cell (bounds, point, isLongitude)

  low = min (bounds)(:);
  high = max (bounds)(:);
  if (isLongitude)
    point = low + mod (point - low, 360);
  endif
  isInside = point >= low & point <= high;

endfunction

## How far outside of the values a point may be: one step from the last one to the point's side.
function reach = reach_of (values, point, isLongitude)

  sorted = unique (values(! isnan (values)));
  if (isLongitude)
    sorted = unique (mod (sorted, 360));
    gaps = sort (diff ([sorted; sorted(1) + 360]));
    reach = max ([gaps(1:end-1); 0]);
    if (numel (gaps) > 1 && gaps(end) < 1.5 * reach)
      reach = gaps(end);
    endif
  else
    gaps = diff (sorted);
    reach = Inf;
    if (! isempty (gaps) && point > sorted(end))
      reach = gaps(end);
    elseif (! isempty (gaps) && point < sorted(1))
      reach = gaps(1);
    endif
  endif
  if (numel (sorted) < 2)
    reach = Inf;
  endif

endfunction

function [positions, values] = positions_in_range (axis, asked)

  v = axis.values(:);
  values = [];
  if (strcmp (axis.role, "lon"))
    [positions, values] = across_the_seam (v, asked.low, asked.high, axis.tolerance);
  elseif (asked.isHighOpen)
    positions = find (v >= asked.low - asked.tolerance & v < asked.high - asked.tolerance)(:)';
  else
    positions = find (v >= asked.low - asked.tolerance & v <= asked.high + asked.tolerance)(:)';
  endif

endfunction
