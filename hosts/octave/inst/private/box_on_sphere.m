## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{plan} =} box_on_sphere (@var{plan}, @var{places}, @var{lon_axis}, @var{lat_axis}, @var{lon_asked}, @var{lat_asked})
## Undocumented internal function: the smallest block of positions that has all points with longitudes and latitudes in
## ranges, and which of its points these are.
## @end deftypefn

function plan = box_on_sphere (plan, places, lonAxis, latAxis, lonAsked, latAsked)

  lons = lonAxis.values;
  isIn = ! isnan (lons) & ! isnan (latAxis.values);
  if (strcmp (latAsked.kind, "range"))
    isIn &= latAxis.values >= latAsked.low - latAxis.tolerance & latAxis.values <= latAsked.high + latAxis.tolerance;
  endif
  if (strcmp (lonAsked.kind, "range"))
    [isEast, lons] = is_east (lons, lonAsked.low, lonAsked.high, lonAxis.tolerance);
    isIn &= isEast;
  endif
  if (! any (isIn(:)))
    fail ("emptySelection", "no point is in the box; '%s' goes %s, '%s' %s", visible_text (lonAxis.name), ...
          extent_of_axis (lonAxis), visible_text (latAxis.name), extent_of_axis (latAxis));
  endif
  lists = cell (1, numel (places));
  if (numel (places) == 1)
    lists{1} = find (isIn)(:)';
  else
    for k = 1:numel (places)
      others = setdiff (1:ndims (isIn), k);
      isMet = isIn;
      for other = others
        isMet = any (isMet, other);
      endfor
      lists{k} = stretch (find (isMet)(:)', size (isIn, k), is_round (lonAxis.values, k));
    endfor
  endif
  plan.lists(places) = lists;
  plan.mask = isIn(lists{:}, 1);
  plan.maskPlaces = places;
  plan.coordinates(end+1) = lonAxis.number;
  plan.values{end+1} = lons;

endfunction

## Whether longitudes are between two, going east, and all of them within half a turn of the middle.
function [yes, lons] = is_east (lons, low, high, tolerance)

  if (high < low)
    high += 360 * ceil ((low - high) / 360);
  endif
  yes = mod (lons - low + tolerance, 360) <= min (high - low, 360) + 2 * tolerance;
  lons = near_longitudes (lons, (low + high) / 2);

endfunction

## All positions from the first to the last of some; where the grid is round, by way of its edge if that is shorter.
function list = stretch (met, len, isRound)

  list = met(1):met(end);
  gaps = diff (met);
  [widest, k] = max (gaps);
  if (isRound && ! isempty (gaps) && widest > met(1) + len - met(end))
    list = [met(k+1):len, 1:met(k)];
  endif

endfunction

## Whether the longitudes of the last positions of a dimension lead on to those of the first.
function yes = is_round (lons, k)

  yes = false;
  if (k != 1 || rows (lons) < 4)
    return;
  endif
  middle = lons(:, ceil (columns (lons) / 2));
  steps = abs (mod (diff (middle([1:end, 1])) + 180, 360) - 180);
  yes = all (isfinite (steps)) && steps(end) <= 3 * median (steps);

endfunction
