% SPDX-License-Identifier: BSD-3-Clause
% Means, sums and the like over named dimensions against the interpreter's own on the values of the file.
1;

function yes = is_near (found, wanted)
  yes = isequal (size (found), size (wanted)) && isequal (isnan (found), isnan (wanted)) ...
        && all (abs (found - wanted)(! isnan (wanted)) <= 1e-10 * max (1, abs (wanted)(! isnan (wanted))));
end

function text = listed (values)
  text = strjoin (arrayfun (@(x) sprintf ("%.17g", x), values(:)', "UniformOutput", false), ", ");
end

function x = without_missing (kind, values)
  values = values(! isnan (values));
  if (strcmp (kind, "count"))
    x = numel (values);
  elseif (isempty (values))
    x = NaN;
  else
    x = feval (kind, values);
  end
end

function x = sum_of_lat (values)
  x = cellfun (@(some) without_missing ("sum", some(:)), num2cell (values, 2));
end

rand ("twister", 5);
lon = 0:45:315;
lat = [-60 -20 10 40 80];
time = 0:29:29*23;
stored = round (rand (8, 5, 24) * 1000);
stored(rand (8, 5, 24) < 0.2) = -1;
stored(:, 2, 3) = -1;
ds = gridio_dataset (made_file (sprintf (["netcdf made {\ndimensions: time = 24; lat = 5; lon = 8; c = 4;\n" ...
  "variables: double time(time); time:units = \"days since 2000-12-01\"; double lat(lat); lat:units = \"degrees_north\";" ...
  "double lon(lon); lon:units = \"degrees_east\"; short f(time, lat, lon); f:_FillValue = -1s; f:scale_factor = 0.5;" ...
  "char name(time, c);\ndata: time = %s; lat = %s; lon = %s; f = %s;\n}\n"], listed (time), listed (lat), listed (lon), ...
  listed (stored))));
f = ds.f ();
v = ds.f;
for kind = {"mean", "sum", "min", "max", "std", "var", "count", "median"}
  for dims = {"time", {"lon", "lat"}, {"lat", "time"}, ":"}
    reduced = ismember ({"lon", "lat", "time"}, dims{1});
    reduced |= ischar (dims{1}) && strcmp (dims{1}, ":");
    cells = num2cell (f, find (reduced));
    wanted = cellfun (@(x) without_missing (kind{1}, x(:)), cells);
    found = feval (kind{1}, v, dims{1});
    check (sprintf ("%s over %s", kind{1}, disp (dims{1})), is_near (found, wanted));
  end
end
check ("without dimensions all are reduced", is_near (v.mean (), mean (f(! isnan (f)))));
check ("of a selection", is_near (v.max ("time", "lat", [0 50]), max (f(:, 3:4, :), [], 3)));
check ("of a selection of what is reduced", is_near (v.sum ("lat", "lat", [0 50], "lon", {90, 0}), ...
       sum_of_lat (f([3 1], 3:4, :))));
check ("of positions", is_near (v.max ("time", "index", "lat", 2:3), max (f(:, 2:3, :), [], 3)));
check ("of positions, over all dimensions", is_near (v.max ("index", "time", 2), max (f(:, :, 2)(:)))
       && is_near (v.max ("lat", [0 50], "index", "time", 2), max (f(:, 3:4, 2)(:))));

[x, at] = v.max ({"lat", "lon"}, "lon", [-100 50]);
check ("of a selection over the seam", is_near (x, max (max (f([7 8 1 2], :, :), [], 2), [], 1)));
check ("the coordinates of what is left", isequal (fieldnames (at), {"time"; "about"}) && isequal (at.time, ds.time(:))
       && isequal (at.about.reduced, {"lon", "lat"}));

w = [1 2 3 4 5];
present = ! isnan (f);
zeroed = f;
zeroed(! present) = 0;
check ("a vector of weights", is_near (v.mean ("lat", "weights", w), sum (zeroed .* w, 2) ./ sum (present .* w, 2) .* (1 ./ any (present, 2))));
edges = sind ([-80 -40 -5 25 60 90]);
areas = diff (edges);
wanted = sum (sum (zeroed .* areas, 2), 1) ./ sum (sum (present .* areas, 2), 1);
check ("weights by area", is_near (mean (v, {"lon", "lat"}, "weights", "area"), wanted));
check ("areas themselves", is_near (v.area (), repmat (areas * pi / 4 * 6371000 ^ 2, 8, 1)));

parts = ds.time.parts ();
for by = {"year", "month", "hour"}
  key = parts(:, find (strcmp (by{1}, {"year", "month", "day", "hour"})));
  groups = unique (key);
  wanted = zeros (8, 5, numel (groups));
  for k = 1:numel (groups)
    wanted(:, :, k) = cellfun (@(x) without_missing ("mean", x(:)), num2cell (f(:, :, key == groups(k)), 3));
  end
  [x, at] = v.mean ("time", "by", by{1});
  check (["by " by{1}], is_near (x, wanted) && isequal (at.(by{1}), groups));
end
[x, at] = v.sum ({"time", "lat", "lon"}, "by", "season");
isWinter = ismember (parts(:,2), [12 1 2]);
check ("by season", isequal (at.season, {"DJF"; "MAM"; "JJA"; "SON"}) && is_near (x(1), sum (zeroed(:, :, isWinter)(:))));
[x, at] = v.count ({"time", "lat", "lon"}, "by", "each season");
check ("by each season, from when it begins", at.time(1) == datenum (2000, 12, 1) && at.time(2) == datenum (2001, 3, 1)
       && x(1) == sum (present(:, :, parts(:,1) == 2000 | parts(:,1) == 2001 & parts(:,2) < 3)(:)));
[x, at] = v.mean ("time", "by", "each month", "time", "2001");
check ("by each month of a year", isequal (size (x), [8 5 12]) && isequal (at.time, datenum (2001, 1:12, 1)'));

check_raises ("an unknown dimension", "unknownName", @() v.mean ("tine"), "did you mean time\\?");
check_raises ("texts", "notANumber", @() ds.name.mean ("time"));
check_raises ("an unknown part of the time", "badCall", @() v.mean ("time", "by", "mont"), "did you mean month");
check_raises ("groups of what is not reduced", "badCall", @() v.mean ("lat", "by", "month"), "among those that are reduced");
check_raises ("too few weights", "badCall", @() v.mean ("lat", "weights", [1 2]), "2 weights for 5");
check_raises ("one vector of weights for two", "badCall", @() v.mean ({"lat", "lon"}, "weights", w));
check_raises ("weights by area of time", "badCall", @() v.mean ("time", "weights", "area"), "longitude or latitude");
check_raises ("a number for a dimension", "badCall", @() v.mean (1), "a name, a cell of names");
conclude ();
