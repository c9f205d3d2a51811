% SPDX-License-Identifier: BSD-3-Clause
% Draws a field over longitude and latitude into a PNG picture, north up.
%   map.m FILE VARIABLE OUT.png [RECORD]     RECORD counts from 0 along the slowest dimension
%
% The coordinates are the variable's dimensions, or two fields that its attribute "coordinates" names:
% then each box of a regular grid gets the mean of the points within it.
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  if (! any (numel (args) == [3 4]))
    error ("usage: map.m FILE VARIABLE OUT.png [RECORD]");
  endif
  record = 0;
  if (numel (args) > 3)
    record = str2double (args{4});
  endif
  if (! (record >= 0 && record == fix (record)))
    error ("RECORD must be a whole number, not %s", args{4});
  endif
  root = gridio ("open", args{1}, "nowrite");
  unwind_protect
    [ncid, varid] = findVariable (root, args{2});
    field = readMap (ncid, varid, record);
  unwind_protect_cleanup
    gridio ("close", root);
  end_unwind_protect

  [picture, layout] = drawField (field);
  imwrite (picture, args{3}, "png");
  printf ("%s: longitudes %.6g to %.6g, latitudes %.6g to %.6g, values from %.6g to %.6g\n", args{3}, ...
          field.x.values([1 end]), field.y.values([1 end]), min (field.values(:)), max (field.values(:)));
  printf ("cells of %d x %d pixels from column %d, row %d on; colour scale from column %d on\n", ...
          layout.cell, layout.left, layout.top, layout.scaleLeft);
endfunction

function field = readMap (ncid, varid, record)
  [name, ~, dimids] = gridio ("inqVar", ncid, varid);
  [start, lengths] = deal (zeros (size (dimids)));
  for d = 1:numel (dimids)
    [~, lengths(d)] = gridio ("inqDim", ncid, dimids(d));
  endfor
  [x, y] = mapDimensions (ncid, dimids);
  curved = isempty (x) || isempty (y);
  if (curved)
    [lon, lat, x, y] = coordinateFields (ncid, varid, dimids);
  endif
  if (isempty (x))
    error ("%s has no coordinates in degrees_east and degrees_north", name);
  endif

  others = setdiff (1:numel (dimids), [x y]);
  if (! isempty (others))
    start(others(end)) = record;
  elseif (record > 0)
    error ("%s has one record", name);
  endif
  count = ones (size (dimids));
  count([x y]) = lengths([x y]);
  values = readValues (ncid, varid, start, count, ones (size (dimids)));
  values = reshape (values, count(min (x, y)), count(max (x, y)));
  if (x > y)
    values = values.';
  endif

  if (curved)
    [field.x, field.y, field.values] = gridded (lon, lat, values);
  else
    [field.x, values] = readAxis (ncid, dimids(x), 0, lengths(x), 1, values);
    [field.y, values] = readAxis (ncid, dimids(y), 0, lengths(y), 1, values.');
    field.values = values.';
  endif
  field.title = titleText (ncid, varid);
  field.subtitle = placeText (ncid, dimids(others), start(others), true);
endfunction

% Which of the dimensions have coordinates in degrees east and north.
function [x, y] = mapDimensions (ncid, dimids)
  [x, y] = deal ([]);
  for d = 1:numel (dimids)
    label = readAxis (ncid, dimids(d), 0, 1, 1, 0).label;
    if (isDirection (label, "east"))
      x = d;
    elseif (isDirection (label, "north"))
      y = d;
    endif
  endfor
endfunction

function yes = isDirection (text, direction)
  yes = ! isempty (regexp (text, ["degrees?_?" direction]));
endfunction

% The fields that "coordinates" names, and the two dimensions that they share with the variable.
function [lon, lat, x, y] = coordinateFields (ncid, varid, dimids)
  [lon, lat, x, y] = deal ([]);
  for name = strsplit (strtrim (textAttribute (ncid, varid, "coordinates")), " ")
    try
      id = gridio ("inqVarID", ncid, name{1});
    catch
      continue;  % a coordinate that is not in the file
    end_try_catch
    [~, ~, own] = gridio ("inqVar", ncid, id);
    [found, at] = ismember (own, dimids);
    if (numel (own) != 2 || ! all (found))
      continue;
    endif
    units = unitsText (ncid, id);
    for d = 1:2
      [~, lengths(d)] = gridio ("inqDim", ncid, own(d));
    endfor
    if (isDirection (units, "east"))
      lon = readValues (ncid, id, [0 0], lengths, [1 1]);
    elseif (isDirection (units, "north"))
      lat = readValues (ncid, id, [0 0], lengths, [1 1]);
    endif
    [x, y] = deal (at(1), at(2));
  endfor
  if (isempty (lon) || isempty (lat))
    [x, y] = deal ([]);
  endif
endfunction

% The means of VALUES within boxes of longitude and latitude. Boxes without any point take the mean of
% their neighbours, up to four boxes away; those whose points have no value stay without one.
function [x, y, boxes] = gridded (lon, lat, values)
  lon = mod (lon + 180, 360) - 180;
  known = isfinite (lon) & isfinite (lat);
  [lon, lat, values] = deal (lon(known), lat(known), values(known));
  area = (max (lon) - min (lon)) * (max (lat) - min (lat));
  sizes = [0.1 0.25 0.5 1 2 5 10];
  size_ = [sizes(sizes >= sqrt (area / numel (lon))), sizes(end)](1);
  [west, south] = deal (floor (min (lon) / size_), floor (min (lat) / size_));
  column = 1 + floor (lon / size_) - west;
  row = 1 + floor (lat / size_) - south;
  shape = [max(column), max(row)];
  points = accumarray ([column row], 1, shape);
  valid = isfinite (values);
  counts = accumarray ([column row](valid, :), 1, shape);
  boxes = accumarray ([column row](valid, :), values(valid), shape) ./ counts;

  for round_ = 1:4
    sums = conv2 (merge (counts > 0, boxes, 0), ones (3), "same");
    near = conv2 (double (counts > 0), ones (3), "same");
    around = conv2 (double (points > 0), ones (3), "same");
    hole = points == 0 & around > 0;
    boxes(hole) = sums(hole) ./ near(hole);
    counts(hole & near > 0) = 1;
    points(hole) = 1;
  endfor
  x = struct ("label", "longitude (degrees_east)", "values", (west + (0:shape(1) - 1) + 0.5) * size_);
  y = struct ("label", "latitude (degrees_north)", "values", (south + (0:shape(2) - 1) + 0.5) * size_);
endfunction

% map.m FILE VARIABLE OUT.png [RECORD]: draws a field over longitude and latitude.

try
  main (argv ());
catch failure
  fprintf (stderr, "map.m: %s\n", failure.message);
  exit (1);
end_try_catch
