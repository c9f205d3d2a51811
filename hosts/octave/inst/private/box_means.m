## SPDX-License-Identifier: BSD-3-Clause

## -*- texinfo -*-
## @deftypefn {} {@var{grid} =} box_means (@var{lon}, @var{lat}, @var{values})
## Undocumented internal function: the means of values within boxes of longitude and latitude.  Boxes without any point take
## the mean of their neighbours, up to four boxes away; those whose points have no value stay without one.
## @end deftypefn

function grid = box_means (lon, lat, values)

  isKnown = isfinite (lon) & isfinite (lat);
  lon = lon(isKnown);
  lat = lat(isKnown);
  values = values(isKnown);
  if (max (lon) - min (lon) > 360)
    lon = mod (lon + 180, 360) - 180;
  endif
  sizes = [0.001, 0.0025, 0.005, 0.01, 0.025, 0.05, 0.1, 0.25, 0.5, 1, 2, 5, 10];
  area = (max (lon) - min (lon)) * (max (lat) - min (lat));
  width = [sizes(sizes >= sqrt (area / numel (lon))), sizes(end)](1);
  west = floor (min (lon) / width);
  south = floor (min (lat) / width);
  box = [1 + floor(lat(:) / width) - south, 1 + floor(lon(:) / width) - west];
  shape = max ([max(box, [], 1); 2, 2]);
  points = accumarray (box, 1, shape);
  isValid = isfinite (values(:));
  counts = accumarray (box(isValid,:), 1, shape);
  means = accumarray (box(isValid,:), values(isValid), shape) ./ counts;
  means = filled (means, counts, points);

  grid.x = struct ("values", (west + (0:shape(2) - 1)' + 0.5) * width, "role", "lon", "isDate", false, "isDown", false, ...
                   "label", "", "name", "lon");
  grid.y = struct ("values", (south + (0:shape(1) - 1)' + 0.5) * width, "role", "lat", "isDate", false, "isDown", false, ...
                   "label", "", "name", "lat");
  grid.values = means;

endfunction

function means = filled (means, counts, points)

  for turn = 1:4
    sums = conv2 (merge (counts > 0, means, 0), ones (3), "same");
    near = conv2 (double (counts > 0), ones (3), "same");
    around = conv2 (double (points > 0), ones (3), "same");
    isHole = points == 0 & around > 0;
    means(isHole) = sums(isHole) ./ near(isHole);
    counts(isHole & near > 0) = 1;
    points(isHole) = 1;
  endfor

endfunction
