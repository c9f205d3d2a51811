% SPDX-License-Identifier: BSD-3-Clause
% Which files are joined, along what, in what order, and what is said of files that cannot be.
1;

% A file with a field of 3 x n values over "x" and a dimension with the coordinate t.
function part (path, name, t, units, values, varargin)
  if (! isempty (strfind (units, "since")) && ! any (strcmp (varargin, "noleap")))
    t = gridio_native ("timesToDatenum", t, units, "standard");
  end
  out = gridio_dataset (path, "new");
  out.put ("x", [10 20 30], "x", "units", "degrees_east");
  out.put (name, t, name, "units", units, varargin{:});
  out.put ("v", values, {"x", name}, "units", "K");
end

function folder = days_of (n)
  folder = tempname ();
  mkdir (folder);
  for k = 1:n
    part (fullfile (folder, sprintf ("day%02d.nc", k)), "time", k, "days since 2000-01-01", [1; 2; 3] + 10 * k, ...
          "_Unlimited", true);
  end
end

function count = open_files (folder)
  count = 0;
  for file = glob ("/proc/self/fd/*")'
    target = readlink (file{1});
    count += ischar (target) && strncmp (target, folder, numel (folder));
  end
end

confirm_recursive_rmdir (false);
folder = days_of (100);
pattern = fullfile (folder, "day*.nc");
ds = gridio_dataset (pattern);
check ("a pattern opens all files", isequal (size (ds.v), [3 100]) && isequal (ds.v(2,:), 2 + 10 * (1:100)));
check ("at most 64 are open", open_files (folder) <= 64 && open_files (folder) > 50);
m = mean (ds.v, "time");
check ("at most 64 are open after a reduction", open_files (folder) <= 64 && isequal (m, [1; 2; 3] + 505));
clear ds
check ("none is open when the dataset is gone", open_files (folder) == 0);
one = gridio_dataset ({fullfile(folder, "day07.nc")});
check ("a cell of one file is many files", isequal (one.v(:,1), [71; 72; 73]) && numel (one.files ().paths) == 1);
clear one
ds = gridio_dataset ({fullfile(folder, "day09.nc"), fullfile(folder, "day0[1-4].nc")});
s = ds.files ();
check ("paths and patterns are sorted by their times", isequal (ds.time(:)', 730486 + [1 2 3 4 9]) && strcmp (s.along, "time"));
check ("gaps are reported", isequal (s.gaps, 730486 + [4 9]) && ! isempty (strfind (evalc ("ds"), "5 files, 2000-01-02 to 2000-01-10, 4 days missing")));
check ("and first and last times", isequal (s.first, s.last) && isequal (s.first', ds.time(:)'));
check_raises ("values are not written", "notWritable", @() subsasgn (ds.v, substruct ("()", {1, 1}), 5), "gridio_dataset \\(FILE");
check_raises ("nor attributes", "notWritable", @() subsasgn (ds, substruct (".", "title"), "x"));
check_raises ("nor are many files opened for it", "badMode", @() gridio_dataset (pattern, "write"));
check_raises ("a pattern without files", "notAFile", @() gridio_dataset (fullfile (folder, "nosuch*.nc")), "nosuch");
check_raises ("an empty cell", "notAFile", @() gridio_dataset ({}));
check_raises ("a dimension that is not there", "unknownName", @() gridio_dataset (pattern, "along", "tiem"), "time");
check_raises ("an option's value", "badOption", @() gridio_dataset (pattern, "missing", "ignore"), "skip");
check_raises ("an option without a value", "badOption", @() gridio_dataset (pattern, "along"), "pairs");
check_raises ("an option's name", "badOption", @() gridio_dataset (pattern, "alonge", "time"), "did you mean along");
check_raises ("an option of many files", "badOption", @() gridio_dataset (fullfile (folder, "day01.nc"), "along", "time"), "many");
check_raises ("two ways at once", "badOption", @() gridio_dataset (pattern, "along", "time", "new dimension", "m"));
check_raises ("a new dimension that is there", "badOption", @() gridio_dataset (pattern, "new dimension", "x"), "along");
clear ds

% Files that go or are damaged.
ds = gridio_dataset (pattern);
unlink (fullfile (folder, "day50.nc"));
bad = fopen (fullfile (folder, "day60.nc"), "r+");
fseek (bad, 0);
fwrite (bad, "no netCDF file");
fclose (bad);
check_raises ("a file that is gone is named", "badFile", @() ds.v(:,50), "day50.nc.*cannot be read");
check_raises ("by reductions, too", "badFile", @() mean (ds.v, "time"), "day50.nc");
check ("other files are read", isequal (ds.v(1,[49 51]), [491 511]));
clear ds
check_raises ("a damaged file is named", "badFile", @() gridio_dataset (pattern), "day60.nc.*cannot be joined.*skip");
warned = raised_warning (@() assignin ("base", "ds", gridio_dataset (pattern, "missing", "skip")));
check (["it is left out with a warning: " warned], ! isempty (strfind (warned, "day60.nc")));
check ("and the others are joined", isequal (ds.v(1,:), 1 + 10 * [1:49, 51:59, 61:100]) && numel (ds.files ().leftOut) == 0);
unlink (fullfile (folder, "day70.nc"));
warned = raised_warning (@() assignin ("base", "m", mean (ds.v, "time")));
check (["a file that goes later is left out, too: " warned], isequal (m(1), 1 + 10 * mean ([1:49, 51:59, 61:69, 71:100]))
       && ! isempty (strfind (warned, "day70.nc")));
warned = raised_warning (@() assignin ("base", "x", ds.v(:,67:69)));
check ("or missing where values are read", isequaln (x(1,:), [691 NaN 711]) && ! isempty (strfind (warned, "day70.nc")));
clear ds
rmdir (folder, "s");

% Units, calendars, overlaps, and the order of coordinates that fall.
folder = tempname ();
mkdir (folder);
f = @(name) fullfile (folder, name);
part (f ("a.nc"), "time", [0 1 2], "days since 2000-03-01", magic (3));
part (f ("b.nc"), "time", [48 72], "hours since 2000-03-01", magic (3)(:,1:2), "calendar", "proleptic_gregorian");
ds = gridio_dataset (f ("?.nc"));
check ("equivalent calendars are joined", isequal (ds.time(:)', datenum (2000, 3, [1 2 3 3 4])));
check ("overlaps are reported", isequal (ds.files ().overlaps, [1 2]) && ! isempty (strfind (evalc ("ds"), "1 overlap")));
part (f ("c.nc"), "time", [100], "days since 2000-03-01", [1; 2; 3], "calendar", "noleap");
check_raises ("others are refused by name", "badFile", @() gridio_dataset (f ("?.nc")), "c.nc.*noleap");
clear ds
part (f ("n1.nc"), "y", [30 20], "degrees_north", [1 2; 1 2; 1 2]);
part (f ("n2.nc"), "y", [50 40], "degrees_north", [3 4; 3 4; 3 4]);
ds = gridio_dataset (f ("n?.nc"));
check ("the dimension whose coordinates differ is found", isequal (ds.y(:)', [50 40 30 20]) && isequal (ds.v(1,:), [3 4 1 2]));
check ("selections are by the joined coordinate", isequal (ds.v.at ("y", [25 45], "x", 10), [4 1]));
part (f ("n3.nc"), "y", [10 0], "degrees_north", [5 6; 5 6; 5 6]);
nc = gridio_dataset (f ("n3.nc"), "write");
nc.x(:) = [11 21 31];
clear nc ds
check_raises ("several that differ are listed", "ambiguousName", @() gridio_dataset (f ("n?.nc")), "x.*y|y.*x");
check_raises ("none that differs", "ambiguousName", @() gridio_dataset ({f("n1.nc"), f("n1.nc")}), "new dimension");

% Variables that cannot be one.
nc = gridio_dataset (f ("n2.nc"), "write");
nc.v.units = "degC";
clear nc
ds = gridio_dataset ({f("n1.nc"), f("n2.nc")});
check_raises ("units that differ", "notOne", @() ds.v(:,:), "n2.nc.*degC.*K|n1.nc.*K.*degC");
check_raises ("of reductions", "notOne", @() mean (ds.v), "units");
check ("the others are read", isequal (ds.y(:)', [50 40 30 20]) && rows (ds.files ().differences) == 1);
check ("the printout says so", ! isempty (strfind (evalc ("ds"), "a variable is not one in all files")));
clear ds

% A new dimension.
for k = [1 2 10]
  part (f (sprintf ("run_%d.nc", k)), "time", [0 1], "days since 2000-01-01", [1 2; 3 4; 5 6] * k);
end
ds = gridio_dataset (f ("run_*.nc"), "new dimension", "member");
check ("files are stacked", isequal (size (ds.v), [3 2 3]) && isequal (ds.v.dimensions ()(:)', {"x", "time", "member"}));
check ("by the numbers of their names", isequal (ds.member(:)', [1 10 2]) && isequal (ds.v(3,2,:)(:)', 6 * [1 10 2]));
check ("coordinates are not", isequal (size (ds.time), [2 1]) && isequal (ds.x(:)', [10 20 30]));
check ("they are reduced", isequal (mean (ds.v, "member"), [1 2; 3 4; 5 6] * 13 / 3));
check ("and kept", isequal (max (ds.v, {"x", "time"})(:)', 6 * [1 10 2]));
check ("medians are of members", isequal (median (ds.v, "member"), 2 * [1 2; 3 4; 5 6]));
[x, at] = ds.v.at ("member", 10, "time", "2000-01-02");
check ("and selected", isequal (x(:)', [20 40 60]) && at.member == 10);
check ("printing them opens none", ! isempty (strfind (evalc ("ds.member"), "names of the files")));
ds = gridio_dataset ({f("run_1.nc"), f("n1.nc")}, "new dimension", "kind");
check ("other names are texts", isequal (ds.kind(:), {"run_1"; "n1"}));
clear ds

% Catalogues.
list = f ("run.catalogue.nc");
check ("a catalogue is written where asked", strcmp (gridio_catalogue (f ("run_*.nc"), list, "new dimension", "member"), list));
ds = gridio_dataset (list);
check ("it opens what it was made of", isequal (ds.v(3,2,:)(:)', 6 * [1 10 2]) && isequal (ds.member(:)', [1 10 2]));
check ("patterns pass it over", numel (gridio_dataset (f ("run*.nc"), "new dimension", "m").files ().paths) == 3);
clear ds
check_raises ("its name", "badName", @() gridio_catalogue (f ("run_*.nc"), f ("run.nc")), "catalogue.nc");
check_raises ("one file", "notAFile", @() gridio_catalogue (f ("run_1.nc")));
check_raises ("one that is not there", "badCatalogue", @() gridio_dataset (f ("no.catalogue.nc")), "makes it");
list = gridio_catalogue (f ("[ab].nc"), f ("ab.catalogue.nc"));
nc = gridio_dataset (f ("b.nc"), "write");
nc.time(2) = datenum (2000, 3, 5);
clear nc
warned = raised_warning (@() assignin ("base", "ds", gridio_dataset (list)));
check (["files that have changed are read again: " warned], isequal (ds.time(end), datenum (2000, 3, 5))
       && ! isempty (strfind (warned, "b.nc")));
clear ds
unlink (f ("b.nc"));
check_raises ("files that are gone are named", "badFile", @() gridio_dataset (list), "b.nc");
warned = raised_warning (@() assignin ("base", "ds", gridio_dataset (list, "missing", "skip")));
check ("or left out", isequal (ds.time(:)', datenum (2000, 3, 1:3)));
clear ds
bytes = fopen (list, "r+");
fwrite (bytes, repmat ("x", 1, 4000));
fclose (bytes);
check_raises ("a damaged catalogue says how to make it anew", "badCatalogue", @() gridio_dataset (list), "gridio_catalogue \\(FILES");
rmdir (folder, "s");
conclude ();
