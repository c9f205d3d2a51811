% SPDX-License-Identifier: BSD-3-Clause
% Every form of selection, on axes of every kind.
1;

function text = listed (values)
  text = strjoin (arrayfun (@(x) sprintf ("%.17g", x), values(:)', "UniformOutput", false), ", ");
end

% A field over lon, lat, level and time: 1000 * position of time + 100 * of level + 10 * of lat + of lon, so that a value says
% where it is from.
function ds = a_field (lon, lat, level, time, timeUnits, more = "")
  [i, j, k, n] = ndgrid (1:numel (lon), 1:numel (lat), 1:numel (level), 1:numel (time));
  ds = gridio_dataset (made_file (sprintf (["netcdf made {\ndimensions: time = %d; plev = %d; latitude = %d; x = %d;\n" ...
      "variables: double time(time); time:units = \"%s\"; %s\ndouble plev(plev); plev:units = \"hPa\";" ...
      "plev:positive = \"down\"; double latitude(latitude); latitude:units = \"degrees_north\";\n" ...
      "float x(x); x:standard_name = \"longitude\"; x:units = \"degrees_east\"; int f(time, plev, latitude, x);\n" ...
      "data: time = %s; plev = %s; latitude = %s; x = %s; f = %s;\n}\n"], numel (time), numel (level), numel (lat), ...
      numel (lon), timeUnits, more, listed (time), listed (level), listed (lat), listed (lon), ...
      listed (1000 * n + 100 * k + 10 * j + i))));
end

function check_lists (claim, x, at, lon, lat, level, time)
  [i, j, k, n] = ndgrid (lon, lat, level, time);
  wanted = 1000 * n + 100 * k + 10 * j + i;
  check (claim, isequal (double (x), wanted));
end

ds = a_field ([0 90 180 270], [60 30 -10 -20 -60], [1000 850 500 100], 0:5, "days since 2000-02-27");
v = ds.f;
[x, at] = v.at ();
check_lists ("nothing is selected", x, at, 1:4, 1:5, 1:4, 1:6);
[x, at] = v.at ("latitude", 25, "level", 900, "time", "2000-02-29");
check_lists ("points on descending and uneven axes", x, at, 1:4, 2, 2, 3);
check ("with their coordinates", isequal (at.latitude, 30) && isequal (at.plev, 850) && isequal (at.level, 850)
       && isequal (at.time, datenum (2000, 2, 29)) && isequal (at.x(:)', [0 90 180 270]));
[x, at] = v.at ("lat", [-20 30], "plev", [100 500]);
check_lists ("ranges have their ends", x, at, 1:4, 2:4, 3:4, 1:6);
[x, at] = v.at ("lat", {-60, 60, 29}, "time", ":");
check_lists ("several points come in their order", x, at, 1:4, [5 1 2], 1:4, 1:6);
[x, at] = v.at ("index", "time", [6 1], "index", "latitude", 2:3, "index", "lon", ":");
check_lists ("positions", x, at, 1:4, 2:3, 1:4, [6 1]);
[x, at] = v.at ("time", {"2000-02-28", "2000-03-01"});
check_lists ("a range of days has the last one", x, at, 1:4, 1:5, 1:4, 2:4);
x = v.at ("time", "2000-02");
check_lists ("a month", x, [], 1:4, 1:5, 1:4, 1:3);
x = v.at ("time", "2000");
check_lists ("a year", x, [], 1:4, 1:5, 1:4, 1:6);
x = v.at ("time", "2000-02-29 13:00");
check_lists ("a moment is the nearest", x, [], 1:4, 1:5, 1:4, 4);
x = v.at ("time", datenum (2000, 3, 1));
check_lists ("a day number", x, [], 1:4, 1:5, 1:4, 4);
x = v.at ("time", datenum (2000, 3, [1 2]));
check_lists ("a range of day numbers", x, [], 1:4, 1:5, 1:4, 4:5);
x = v.at ("time", {"2000-03-03", "2000-02-27 01:00", "2000-02-28"});
check_lists ("several moments", x, [], 1:4, 1:5, 1:4, [6 1 2]);
x = v.at ("level", 870, "within", 20);
check_lists ("a point within a distance", x, [], 1:4, 1:5, 2, 1:6);
x = v.at ("lat", 200, "within", Inf);
check_lists ("a point from however far", x, [], 1:4, 1, 1:4, 1:6);

[x, at] = v.at ("lon", [-100 100]);
check_lists ("longitudes over the seam", x, at, [4 1 2], 1:5, 1:4, 1:6);
check ("are monotonic", isequal (at.x(:)', [-90 0 90]) && isequal (at.lon, at.x));
[x, at] = v.at ("lon", [170 -80]);
check_lists ("longitudes go east from the first to the second", x, at, 3:4, 1:5, 1:4, 1:6);
check ("in the convention of the first", isequal (at.x(:)', [180 270]));
[x, at] = v.at ("lon", [-180 180]);
check_lists ("a full circle has each once", x, at, [3 4 1 2], 1:5, 1:4, 1:6);
check ("and is monotonic", isequal (at.x(:)', [-180 -90 0 90]));
[x, at] = v.at ("lon", -85);
check_lists ("a point in the other convention", x, at, 4, 1:5, 1:4, 1:6);
check ("is counted as it was asked", isequal (at.x, -90));
[x, at] = v.at ("lon", 350);
check_lists ("the nearest over the seam", x, at, 1, 1:5, 1:4, 1:6);
check ("is counted as it was asked", isequal (at.x, 360));
x = v.raw.at ("lat", 60, "lon", 0, "level", 1000, "time", "2000-02-27");
check ("stored values", isequal (x, int32 (1111)));

west = a_field ([-180 -90 0 90], [0 1], 1, 0, "hours since 2000-01-01");
[x, at] = west.f.at ("lon", [90 270]);
check_lists ("the other convention over the other seam", x, at, [4 1 2], 1:2, 1, 1);
check ("is monotonic as well", isequal (at.x(:)', [90 180 270]));
down = a_field ([270 180 90 0], [0 1], 1, 0, "hours since 2000-01-01");
[x, at] = down.f.at ("lon", [-100 100]);
check ("descending longitudes descend over the seam", isequal (at.x(:)', [90 0 -90]) && isequal (double (x(:,1)'), 1110 + [3 4 1]));

calendar = a_field (0, 0, 1, 58:61, "days since 2013-01-01", "time:calendar = \"360_day\";");
check ("a date of its calendar only", isequal (calendar.f.at ("time", "2013-02-30"), int32 (2111)));
[x, at] = calendar.f.at ("time", "2013-02");
check ("a month of its calendar", isequal (double (x(:)'), [1111 2111]) && isequal (at.time(:)', [58 59]));
check ("numbers as stored in it", isequal (calendar.f.at ("time", 60), int32 (3111)));
noleap = a_field (0, 0, 1, 58:61, "days since 2012-01-01", "time:calendar = \"noleap\";");
check_raises ("a date of another calendar", "badSelection", @() noleap.f.at ("time", "2012-02-29"), "noleap");

early = a_field (0, [0 1], 1, [15 45 75], "days since 0001-01-01");
[x, at] = early.f.at ("lat", 1);
check ("times before the Gregorian calendar are numbers as stored", isequal (x(:)', int32 ([1121 2121 3121]))
       && isequal (at.time(:)', [15 45 75]) && ! at.about.coordinates(strcmp ({at.about.coordinates.name}, "time")).isDatenum);
[x, at] = early.f.at ("time", "0001-02", "lat", 1);
check ("and are selected by their dates", isequal (x(:), int32 (2121)) && isequal (at.time, 45));
[x, at] = early.f.mean ("time", "by", "each month", "lat", 1);
check ("and grouped by them", isequal (x(:)', [1121 2121 3121]) && isequal (at.time(:)', [0 31 59]));
months = a_field (0, [0 1], 1, 0:2, "months since 2000-01-01");
[x, at] = months.f.at ("lat", 1);
check ("so are months", isequal (x(:)', int32 ([1121 2121 3121])) && isequal (at.time(:)', 0:2));

check_raises ("a range upside down", "badSelection", @() v.at ("lat", [60 40]), "upside down");
check_raises ("dates upside down", "badSelection", @() v.at ("time", {"2001", "2000"}), "upside down");
check_raises ("a range that meets nothing", "emptySelection", @() v.at ("lat", [70 80]), "from -60 to 60");
check_raises ("a period that meets nothing", "emptySelection", @() v.at ("time", "1999"), "2000-02-27.* to 2000-03-03");
check_raises ("a point far outside", "emptySelection", @() v.at ("lat", 120), "from -60 to 60");
check_raises ("a point outside a distance", "emptySelection", @() v.at ("level", 900, "within", 20), "within 20 of 900; the nearest is 850");
check_raises ("an unknown axis", "unknownName", @() v.at ("latitute", 3), "did you mean latitude\\?");
check_raises ("a date that does not exist", "badSelection", @() v.at ("time", "2000-02-30"), "2000-02-30");
check_raises ("words for a date", "badSelection", @() v.at ("time", "yesterday"), "yesterday");
check_raises ("a year as a number", "badSelection", @() v.at ("time", 2000), "the year is \"2000\"");
check_raises ("three numbers", "badSelection", @() v.at ("lat", [1 2 3]), "a cell of several numbers");
check_raises ("a missing number", "badSelection", @() v.at ("lat", NaN));
check_raises ("a text for numbers", "badSelection", @() v.at ("lat", "north"));
check_raises ("a name without selection", "badSelection", @() v.at ("lat"), "no selection");
check_raises ("a selection without name", "badSelection", @() v.at (3));
check_raises ("within nothing", "badSelection", @() v.at ("lat", 3, "within", -1));
check_raises ("a position too large", "badIndex", @() v.at ("index", "time", 7), "6 at most");
check_raises ("positions of nothing", "emptySelection", @() v.at ("index", "time", []));

% Bounds, texts, dimensions without coordinates, and several selections of one dimension.
ds = gridio_dataset (made_file (["netcdf made {\ndimensions: n = 4; b = 2; s = 3; c = 6; t = 5;\n" ...
  "variables: double n(n); n:bounds = \"n_bounds\"; double n_bounds(n, b); char name(s, c); double f(s, n);" ...
  "f:coordinates = \"name\"; double lat(t); lat:units = \"degrees_north\"; double lon(t); lon:units = \"degrees_east\";" ...
  "double time(t); time:units = \"hours since 2000-01-01\"; double g(t); g:coordinates = \"lat lon time\"; double h(s, t);\n" ...
  "data: n = 1, 2, 3, 10; n_bounds = 0, 1.9, 1.9, 2, 2, 9, 9, 11; name = \"one\", \"two\", \"three\";\n" ...
  "f = 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12; lat = 0, 10, 20, 30, 40; lon = 350, 355, 0, 5, 10; time = 0, 1, 2, 3, 4;\n" ...
  "g = 1, 2, 3, 4, 5; h = 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15;\n}\n"]));
check ("the cell that a point is in", isequal (ds.f.at ("n", 8.5, "name", "two"), 7));
check ("texts by name", isequal (ds.f.at ("name", {"three", "one"}, "n", 2), [10 2]));
check ("by the dimension that they are along", isequal (ds.f.at ("s", "three", "n", 2), 10));
check_raises ("an unknown text", "emptySelection", @() ds.f.at ("name", "twp"), "did you mean two\\?");
check_raises ("no coordinates", "noCoordinate", @() ds.h.at ("s", 2), "\"index\", \"s\"");
[x, at] = ds.h.at ("index", "s", 2);
check ("positions stand for missing coordinates", isequal (x(:)', 6:10) && isequal (at.s, 2));
[x, at] = ds.g.at ("lat", [5 35], "time", [datenum(2000, 1, 1, 2, 0, 0), datenum(2000, 1, 2)]);
check ("selections of one dimension together", isequal (x(:)', [3 4]) && isequal (at.lat(:)', [20 30]));
check_raises ("with nothing in common", "emptySelection", @() ds.g.at ("lat", 0, "time", "2000-01-01 04:00"), "in common");
[x, at] = ds.h.at ("g", 4);
check ("by any variable along a dimension", isequal (x(:)', 4:5:14) && isequal (at.g, 4));
[x, at] = ds.g.at ("lat", 12, "lon", -4);
check ("the nearest point along a line", isequal (x, 2) && isequal (at.lon, -5));
[x, at] = ds.g.at ("lat", [5 35], "lon", [-3 7]);
check ("a box along a line", isequal (x(:)', [3 4]) && isequal (at.lon(:)', [0 5]));
[x, at] = ds.g.at ("lon", [-6 2]);
check ("longitudes along a line", isequal (x(:)', [2 3]) && isequal (at.lon(:)', [-5 0]));

% Two-dimensional coordinates, round along the first dimension.
[i, j] = ndgrid (0:35, 0:8);
lon = mod (i * 10 + 100, 360) - 180 + j / 10;
lat = -40 + 10 * j + i / 100;
ds = gridio_dataset (made_file (sprintf (["netcdf made {\ndimensions: j = 9; i = 36;\nvariables: double nav_lon(j, i);" ...
  "nav_lon:units = \"degrees_east\"; double nav_lat(j, i); nav_lat:units = \"degrees_north\"; float f(j, i);" ...
  "f:coordinates = \"nav_lat nav_lon\"; int g(j, i); g:coordinates = \"nav_lat nav_lon\";\ndata: nav_lon = %s; nav_lat = %s;" ...
  "f = %s; g = %s;\n}\n"], listed (lon), listed (lat), listed (1:324), listed (1:324))));
f = single (reshape (1:324, 36, 9));
away = acosd (min (1, sind (lat) * sind (12) + cosd (lat) * cosd (12) .* cosd (lon - 179)));
[~, nearest] = min (away(:));
[x, at] = ds.f.at ("lat", 12, "lon", 179);
check ("the nearest point on the sphere", isequal (x, f(nearest)) && abs (at.lon - 179) < 180);
[x, at] = ds.f.at ("lon", [170.25 200], "lat", [-25 15]);
isIn = mod (lon - 170.25, 360) <= 29.75 & lat >= -25 & lat <= 15;
check ("a box has its points and no others", isequal (sort (x(! isnan (x)))(:), f(isIn)(:)));
check ("and their longitudes in one piece", all (diff (at.nav_lon)(:) > 0) && all (at.nav_lon(! isnan (x)) >= 170.25) && any (isnan (x(:))));
[x, at] = ds.f.at ("lon", [-90 -70]);
check ("a box over the edge of the grid is one piece", rows (x) <= 4 && all (diff (at.nav_lon)(:) > 0)
       && isequal (sort (x(! isnan (x)))(:), f(mod (lon + 90, 360) <= 20)(:)));
x = ds.g.at ("lon", [170.25 200], "lat", [-25 15]);
check ("integers outside of the box are missing", isa (x, "double") && isequal (sort (x(! isnan (x)))(:), double (f(isIn)(:))));
check_raises ("one coordinate alone for a point", "badSelection", @() ds.f.at ("lat", 12), "a number for each");
check_raises ("an empty box", "emptySelection", @() ds.f.at ("lat", [80 85], "lon", [0 5]), "no point is in the box");
check_raises ("several points", "badSelection", @() ds.f.at ("lat", {1, 2}, "lon", {1, 2}), "one point at a time");
check_raises ("too far on the sphere", "emptySelection", @() ds.f.at ("lat", 89, "lon", 5, "within", 2), "degrees away");
conclude ();
