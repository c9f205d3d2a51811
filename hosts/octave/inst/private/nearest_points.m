## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{plan} =} nearest_points (@var{plan}, @var{places}, @var{lon_axis}, @var{lat_axis}, @var{lons}, @var{lats}, @var{within})
## Undocumented internal function: the positions of the points that are nearest on the sphere to longitudes and latitudes,
## within a distance in degrees.
## @end deftypefn

function plan = nearest_points (plan, places, lonAxis, latAxis, lons, lats, within)

  if (numel (lons) != numel (lats))
    fail ("badSelection", "there are %d longitudes and %d latitudes for points", numel (lons), numel (lats));
  elseif (numel (places) > 1 && numel (lons) > 1)
    fail ("badSelection", "'%s' has several dimensions: select one point at a time, or a box", visible_text (latAxis.name));
  endif
  positions = zeros (1, numel (lons));
  lonValues = lonAxis.values(:);
  for k = 1:numel (lons)
    distances = great_circle (lonAxis.values(:), latAxis.values(:), lons(k), lats(k));
    [distance, positions(k)] = min (distances);
    if (isempty (distance) || isnan (distance) || distance > min ([within, Inf]))
      fail ("emptySelection", "no point is near longitude %g and latitude %g; the nearest is %g degrees away", lons(k), ...
            lats(k), min ([distance, NaN]));
    endif
    lonValues(positions(k)) = near_longitudes (lonValues(positions(k)), lons(k));
  endfor
  at = cell (1, numel (places));
  [at{:}] = ind2sub ([size(lonAxis.values)(1:numel (places)), 1], positions);
  plan.lists(places) = at;
  plan.coordinates(end+1) = lonAxis.number;
  plan.values{end+1} = reshape (lonValues, size (lonAxis.values));

endfunction

## In degrees.
function distances = great_circle (lons, lats, lon, lat)

  half = sind ((lats - lat) / 2) .^ 2 + cosd (lats) .* cosd (lat) .* sind ((lons - lon) / 2) .^ 2;
  distances = 2 * asind (min (1, sqrt (half)));

endfunction
