% SPDX-License-Identifier: BSD-3-Clause
% Reductions of many files by other processes against the same by this one, and bits between places.
1;

folder = tempname ();
mkdir (folder);
rand ("twister", 3);
for k = 1:9
  v = round (100 * rand (6, 5, 4)) / 10;
  v(rand (6, 5, 4) < 0.2) = NaN;
  v(2, 3, :) = NaN;
  ds = gridio_dataset (fullfile (folder, sprintf ("f%d.nc", k)), "new");
  ds.put ("lon", (0:60:300)', "lon", "units", "degrees_east");
  ds.put ("lat", [-60 -20 10 40 80]', "lat", "units", "degrees_north");
  ds.put ("time", datenum (2001, 1, 10 * k + (1:4))', "time", "units", "days since 2000-01-01", "_Unlimited", true);
  ds.put ("v", v, {"lon", "lat", "time"}, "scale_factor", 0.1, "_Type", "short");
  clear ds
end
many = gridio_dataset (fullfile (folder, "f*.nc"));
cores = {"on", "cores", "workers", 2};
cases = {{"time"}, {{"time", "lon"}}, {":"}, {"lat"}, {"time", "time", {"2001-01-23", "2001-03-02"}}, ...
         {"time", "by", "month"}, {"time", "by", "month", "time", {"2001-02-02", "2001-04-01"}, "lat", [0 90]}};
for kind = {"mean", "sum", "min", "max", "count", "var", "std"}
  for given = cases
    if (any (strcmp (kind{1}, {"sum", "max", "std"})) && numel (given{1}) == 1)
      continue; % as the others
    end
    [x, at] = feval (kind{1}, many.v, given{1}{:});
    [y, there] = feval (kind{1}, many.v, given{1}{:}, "on", "here");
    near = isequal (size (x), size (y)) && isequal (isnan (x), isnan (y)) ...
           && all (abs (x - y)(! isnan (x)) <= 1e-12 * max (1, abs (x(! isnan (x)))));
    check (sprintf ("%s %s", kind{1}, disp (given{1})), near && isequal (at, there));
  end
end
for given = cases([1 6])
  here = mean (many.v, given{1}{:}, "on", "here");
  check (["the same bits on cores: " disp(given{1})], isequaln (here, mean (many.v, given{1}{:}, cores{:})));
end
weights = (1:36)';
for given = {{":", "weights", "area"}, {"time", "weights", weights}, {"time", "weights", weights, "time", {"2001-01-23", "2001-03-02"}}}
  x = mean (many.v, given{1}{:});
  y = mean (many.v, given{1}{:}, "on", "here");
  check ("a weighted mean", isequal (isnan (x), isnan (y)) && all (abs (x - y)(! isnan (x)) < 1e-12));
end
check ("of a coordinate", mean (many.time, "time", "on", "here") == mean (many.time, "time"));

keep = fullfile (folder, "kept");
first = mean (many.v, "time", "on", "here", "folder", keep);
clear many
many = gridio_dataset (fullfile (folder, "f*.nc"));
kept = glob (fullfile (keep, "partial-*"));
again = mean (many.v, "time", "on", "here", "folder", keep);
check ("partials of an earlier dataset are used", numel (kept) == 9 && isequal (kept, glob (fullfile (keep, "partial-*"))) ...
       && isequaln (first, again));

% Ranks that begin at the same time: whenever one is about to create a folder, another has just done so.
function [isMade, reason] = mkdir_too_late (folder)
  global missing
  isMade = false;
  reason = "File exists";
  if (isempty (missing))
    missing = {folder, fileparts(folder)};
  end
  [~] = system (["mkdir '" missing{end} "'"]);
  missing(end) = [];
end
eval ("function varargout = mkdir (varargin) [varargout{1:2}] = mkdir_too_late (varargin{:}); end");
keep = fullfile (folder, "shared", "partials");
check ("ranks create one folder together", isequaln (first, mean (many.v, "time", "on", "here", "folder", keep)));
clear -f mkdir
check_raises ("a file is no folder", "notWritten", ...
              @() mean (many.v, "time", "on", "here", "folder", fullfile (folder, "f1.nc")), "cannot create the folder");

check_raises ("a median needs all values", "badCall", @() median (many.v, "time", "on", "here"), "a median needs all values");
one = gridio_dataset (fullfile (folder, "f1.nc"));
check_raises ("one file has no parts", "badCall", @() mean (one.v, "time", "on", "here"), "needs many files");
clear one many
confirm_recursive_rmdir (false);
rmdir (folder, "s");
conclude ();
