## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {[@var{positions}, @var{values}] =} across_the_seam (@var{stored}, @var{low}, @var{high}, @var{tolerance})
## Undocumented internal function: the positions of longitudes from the first to the second, going east, in the order in
## which they are one piece, and their values, monotonic if those of the file are but for the seam.
## @end deftypefn

function [positions, values] = across_the_seam (stored, low, high, tolerance)

  if (high < low)
    high += 360 * ceil ((low - high) / 360);
  endif
  if (high - low > 360)
    high = low + 360;
  endif
  turns = ceil ((low - tolerance - stored) / 360);
  values = stored;
  values(turns != 0) += 360 * turns(turns != 0);
  positions = find (values <= high + tolerance);
  if (high - low == 360)
    ## A full circle: the last meridian is the first.
    positions = positions(values(positions) < low + 360 - tolerance | values(positions) < low + tolerance);
  endif
  values = values(positions);
  steps = diff (values);
  if (! isempty (steps) && any (steps > 0) && any (steps < 0) && is_piecewise (stored))
    [values, order] = sort (values, merge (mostly_rises (stored), "ascend", "descend"));
    positions = positions(order);
  endif
  positions = positions(:)';

endfunction

## Whether longitudes go one way, but for one seam: a track of a ship keeps its order.
function yes = is_piecewise (stored)

  steps = diff (stored(! isnan (stored)));
  yes = min (sum (steps > 0), sum (steps < 0)) <= 1 && all (steps != 0);

endfunction

function yes = mostly_rises (stored)

  steps = diff (stored(! isnan (stored)));
  yes = sum (steps > 0) >= sum (steps < 0);

endfunction
