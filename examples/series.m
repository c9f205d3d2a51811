% SPDX-License-Identifier: BSD-3-Clause
% Draws the series of a variable at a place into a PNG picture.
%   series.m FILE VARIABLE OUT.png                        a variable over one dimension
%   series.m FILE VARIABLE OUT.png LONGITUDE LATITUDE     one over longitude, latitude and the series
%
% The grid point nearest to the place is taken, also across the date line.
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  if (! any (numel (args) == [3 5]))
    error ("usage: series.m FILE VARIABLE OUT.png [LONGITUDE LATITUDE]");
  endif
  place = str2double (args(4:end));
  if (any (isnan (place)))
    error ("LONGITUDE and LATITUDE must be numbers, not %s", strjoin (args(4:5), " and "));
  endif
  root = gridio ("open", args{1}, "nowrite");
  unwind_protect
    [ncid, varid] = findVariable (root, args{2});
    series = readSeries (ncid, varid, place);
  unwind_protect_cleanup
    gridio ("close", root);
  end_unwind_protect

  [picture, layout] = drawSeries (series);
  imwrite (picture, args{3}, "png");
  printf ("%s: %d values from %.6g to %.6g, %d without value; %s\n", args{3}, numel (series.y.values), ...
          min (series.y.values), max (series.y.values), sum (isnan (series.y.values)), series.subtitle);
  printf ("%d x %d pixels from column %d, row %d on; x from %.15g to %.15g, y from %.15g to %.15g\n", ...
          layout.width, layout.height, layout.left, layout.top, layout.x, layout.y);
endfunction

function series = readSeries (ncid, varid, place)
  [name, ~, dimids] = gridio ("inqVar", ncid, varid);
  [start, count] = deal (zeros (size (dimids)), ones (size (dimids)));
  along = [];
  for d = 1:numel (dimids)
    [~, length_] = gridio ("inqDim", ncid, dimids(d));
    [axis_, order] = readAxis (ncid, dimids(d), 0, length_, 1, (0:length_ - 1).');
    if (isempty (place) || isempty (regexp (axis_.label, "degrees?_?(east|north)")))
      along(end + 1) = d;
      continue;
    endif
    wanted = place(1 + ! isempty (regexp (axis_.label, "north")));
    distance = abs (axis_.values - wanted);
    if (! isempty (regexp (axis_.label, "east")))
      distance = min (mod (distance, 360), 360 - mod (distance, 360));
    endif
    [~, nearest] = min (distance);
    start(d) = order(nearest);
  endfor
  if (numel (along) != 1 || numel (dimids) != numel (place) + 1)
    error ("%s is no series, with or without longitude and latitude", name);
  endif

  [~, count(along)] = gridio ("inqDim", ncid, dimids(along));
  if (count(along) < 2)
    error ("%s has fewer than two values along the series", name);
  endif
  values = readValues (ncid, varid, start, count, ones (size (dimids)))(:);
  [series.x, values] = readAxis (ncid, dimids(along), 0, count(along), 1, values);
  series.x = dated (ncid, dimids(along), series.x);
  series.y = struct ("label", [name unitsText(ncid, varid)], "values", values.');
  others = setdiff (1:numel (dimids), along);
  series.title = titleText (ncid, varid);
  series.subtitle = placeText (ncid, dimids(others), start(others), true);
endfunction

% series.m FILE VARIABLE OUT.png [LONGITUDE LATITUDE]: draws a series, such as at a place.

try
  main (argv ());
catch failure
  fprintf (stderr, "series.m: %s\n", failure.message);
  exit (1);
end_try_catch
