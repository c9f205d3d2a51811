% Writes two small files with synthetic data into the current folder, to try things on: sea.nc, the monthly temperature of a
% sea, and stations.nc, the water level at some places. The manual uses them.
%   source (fullfile (gridio_version ().examples, "sample.m"))
% SPDX-License-Identifier: BSD-3-Clause
1;
if (! exist ("gridio"))
  pkg load gridio
endif

function write_sea (file)
  [lon, lat, depth] = deal ((0:10:350)', (-80:10:80)', [0 10 50 100 200 500 1000]');
  time = datenum (2012, (1:24)', 15);
  [x, y, m] = ndgrid (lon, lat, 1:24);
  sst = 28 * cosd (y) - 2 + 4 * sind (y) .* cosd (30 * (m - 8)) + sind (2 * x) + m / 50;
  isLand = x >= 70 & x <= 130 & y >= -20 & y <= 60;
  sst(isLand) = NaN;
  below = sst .* reshape (exp (-depth / 300), 1, 1, 1, []);

  out = gridio_dataset (file, "replace");
  out.title = "Monthly temperature of a synthetic sea";
  out.put ("lon", lon, "lon", "units", "degrees_east", "standard_name", "longitude");
  out.put ("lat", lat, "lat", "units", "degrees_north", "standard_name", "latitude");
  out.put ("depth", depth, "depth", "units", "m", "positive", "down", "standard_name", "depth");
  out.put ("time", time, "time", "units", "days since 2012-01-01", "calendar", "standard", "_Unlimited", true);
  out.put ("sst", sst, {"lon", "lat", "time"}, "units", "degC", "standard_name", "sea_surface_temperature", ...
           "long_name", "surface temperature", "scale_factor", 0.01, "_Type", "short");
  out.put ("temp", single (permute (below, [1 2 4 3])), {"lon", "lat", "depth", "time"}, "units", "degC", ...
           "standard_name", "sea_water_temperature", "long_name", "temperature");
  out.put ("quality", int8 (isLand * 2 + (! isLand & sst < 0)), {"lon", "lat", "time"}, "flag_values", int8 (0:2), ...
           "flag_meanings", "open_water ice land");
endfunction

function write_stations (file)
  names = {"Aberdeen", "Brest", "Cuxhaven", "Esbjerg", "Ostend"};
  time = datenum (2013, 5, 1) + (0:47)' / 24;
  level = 2 * cos (2 * pi * 24 / 12.42 * (time - time(1)) + (1:5)) + (1:5) / 10;

  out = gridio_dataset (file, "replace");
  out.put ("name", names, "station", "long_name", "name of the station");
  out.put ("lon", [-2.1 -4.5 8.7 8.4 2.9], "station", "units", "degrees_east", "standard_name", "longitude");
  out.put ("lat", [57.1 48.4 53.9 55.5 51.2], "station", "units", "degrees_north", "standard_name", "latitude");
  out.put ("time", time, "time", "units", "hours since 2013-05-01", "calendar", "standard");
  out.put ("level", level, {"time", "station"}, "units", "m", "long_name", "water level", "coordinates", "name lon lat");
endfunction

% Writes the two files, over those of that name.
write_sea ("sea.nc");
write_stations ("stations.nc");
printf ("sea.nc and stations.nc are in the current folder\n");
