## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{bounds} =} bounds_of (@var{file}, @var{number})
## Undocumented internal function: the bounds of a coordinate's cells, 2 or more rows by the coordinate's shape; times as
## numbers of their units.
## @end deftypefn

function bounds = bounds_of (file, number)

  bounds = stored_bounds (file, number);
  if (! isempty (bounds))
    return;
  endif
  axis = coordinate_axis (file, number);
  if (axis.isText || numel (axis.dimensions) != 1)
    fail ("noBounds", "'%s' has no stored bounds, and they can only be derived from coordinates along one dimension", ...
          visible_text (axis.name));
  elseif (numel (axis.values) < 2)
    fail ("noBounds", "'%s' has no stored bounds, and they cannot be derived from a single value", visible_text (axis.name));
  endif
  edges = edges_between (axis.values(:), strcmp (axis.role, "lon"));
  if (strcmp (axis.role, "lat"))
    edges = max (-90, min (90, edges));
  endif
  bounds = [edges(1:end-1)'; edges(2:end)'];

endfunction

## Half way between neighbours, and as far beyond the first and last value.
function edges = edges_between (values, isLongitude)

  steps = diff (values);
  if (isLongitude)
    steps = mod (steps + 180, 360) - 180; # also over the seam
    values = values(1) + [0; cumsum(steps)];
  endif
  edges = [values(1) - steps(1) / 2; values(1:end-1) + steps / 2; values(end) + steps(end) / 2];

endfunction
