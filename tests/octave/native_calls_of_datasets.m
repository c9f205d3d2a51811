% SPDX-License-Identifier: BSD-3-Clause
% What the dataset classes are built on, called as they call it.
function check_native_error (identifier, varargin)
  raised = "(no error)";
  try
    gridio_native (varargin{:});
  catch failure
    raised = failure.identifier;
  end
  check (sprintf ("%s instead of %s", raised, identifier), strcmp (raised, identifier));
end

[ncid, path] = new_file ("netcdf4");
x = gridio ("defDim", ncid, "x", 3);
t = gridio ("defDim", ncid, "time", gridio ("parameter", "NC_UNLIMITED"));
short = gridio ("parameter", "NC_SHORT");
v = gridio ("defVar", ncid, "v", short, [x t]);
gridio ("putAttDouble", ncid, v, "scale_factor", gridio ("parameter", "NC_DOUBLE"), 0.5);
gridio ("putAttText", ncid, v, "units", "K");
gridio ("endDef", ncid);
fill = int16 (-32767);
stored = gridio_native ("pack", [1 2; NaN 4; 5 6.1], "short", 0.5, 0, fill);
check ("packed values have the class of the type", isequal (stored, int16 ([2 4; -32767 8; 10 12])));
gridio ("putVaraShort", ncid, v, [0 0], [3 2], stored);

d = gridio_native ("describe", ncid);
check ("a description has its parts", isequal (fieldnames (d), {"path"; "format"; "groups"; "dimensions"; "variables"}));
check ("the path is the file's", strcmp (d.path, path));
check ("lengths are current", isequal (d.dimensions.length, [3; 2]));
check ("dimensions are in the order of the array", isequal (d.variables.dimensions, {[1 2]}));
check ("attributes are pairs", isequal (d.variables.attributes{1}, {"scale_factor", 0.5; "units", "K"}));

r = gridio_native ("decoding", ncid, v, 31);
check ("packed values become doubles", strcmp (r.class, "double") && r.isPacked && r.scale == 0.5);
check ("without warnings", iscellstr (r.warnings) && isempty (r.warnings));
values = gridio_native ("read", ncid, v, [0 0], [3 2], [1 1], 31);
check ("values are decoded", isequaln (values, [1 2; NaN 4; 5 6]));
[mean, count] = gridio_native ("reduce", "mean", ncid, v, [0 0], [3 2], [1 1], 31, [false true], {}, {});
check ("means leave out what is missing", isequal (mean, [1.5; 4; 5.5]) && isequal (count, [2; 1; 2]));
mean = gridio_native ("reduce", "mean", ncid, v, [0 0], [3 2], [1 1], 31, [true false], {}, {[1 1 3], []});
check ("means mind weights", isequal (mean, [4 4.8]));

units = "hours since 2000-01-01";
check ("day numbers are the interpreter's",
       isequal (gridio_native ("timesToDatenum", [0 6], units, "standard"), datenum (2000, 1, 1, [0 6], 0, 0)));
check ("texts are a cell array", isequal (gridio_native ("timesToText", [0; 6], units, "noleap"),
                                          {"2000-01-01 00:00"; "2000-01-01 06:00"}));
[ends, is_period] = gridio_native ("periodToTimes", "2000-01-02", units, "standard");
check ("a day is a period", isequal (ends, [24 48]) && is_period);
check_native_error ("Ovard:gridio:dataset:unreadableTime", "timesToDatenum", 1, units, "lunar");
check_native_error ("Ovard:gridio:dataset:valueOutOfRange", "pack", [1 1e9], "short", 1, 0, []);
check_native_error ("Ovard:gridio:netcdf:unrecognizedOperation");
check_native_error ("Ovard:gridio:netcdf:unrecognizedOperation", "open", path, "nowrite");
gridio ("close", ncid);
check_native_error ("Ovard:gridio:netcdf:libraryFailure", "describe", ncid);
conclude ();
