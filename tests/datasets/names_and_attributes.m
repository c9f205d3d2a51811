% SPDX-License-Identifier: BSD-3-Clause
% What a dataset has is found by name, path, attribute and axis; what it does not have is an error that helps.
1;
path = made_file (["netcdf made {\n:title = \"A title\"; :number = 3, 4; :odd-name = \"odd\";\n" ...
  "dimensions: time = UNLIMITED; longitude = 3; n = 5; m = 2;\n" ...
  "variables: double time(time); time:standard_name = \"time\"; time:units = \"days since 2000-01-01\";\n" ...
  "float longitude(longitude); longitude:units = \"degrees_east\"; float t2m(time, longitude); t2m:units = \"K\";\n" ...
  "t2m:standard_name = \"air_temperature\"; t2m:long_name = \"Temperature at 2 m\"; t2m:valid_range = 0.f, 400.f;\n" ...
  "int \\2nd-name(longitude); char find(n); char names(m, n); char code(longitude); string s(m);\n" ...
  "byte quality(longitude); quality:flag_values = 0b, 1b, 2b; quality:flag_meanings = \"good bad worse\";\n" ...
  "byte masks(longitude); masks:flag_masks = 1b, 2b, 4b; masks:flag_meanings = \"wet cold dark\";\n" ...
  "byte both(longitude); both:flag_masks = 1b, 6b, 6b; both:flag_values = 1b, 2b, 4b; both:flag_meanings = \"on low high\";\n" ...
  "data: time = 0, 1; longitude = 0, 1, 2; t2m = 1, 2, 3, 4, 5, 6; \\2nd-name = 1, 2, 3; find = \"found\";\n" ...
  "names = \"one\", \"two\"; code = \"abc\"; s = \"eins\", \"zwei\"; quality = 0, 2, 7; masks = 0, 3, 4; both = 1, 4, 3;\n" ...
  "group: PRODUCT { variables: float qa_value(longitude); qa_value:units = \"1\"; :title = \"Inner\";\n" ...
  "data: qa_value = 7, 8, 9; group: deep { variables: int x; data: x = 5; } } group: other { }\n}\n"]);
ds = gridio_dataset (path);
check ("variables with those of groups", isequal (ds.variables (), {"time"; "longitude"; "t2m"; "2nd-name"; "find"; "names"; ...
       "code"; "s"; "quality"; "masks"; "both"; "PRODUCT/qa_value"; "PRODUCT/deep/x"}));
check ("dimensions", isequal (ds.dimensions (), {"time"; "longitude"; "n"; "m"}));
check ("groups", isequal (sort (ds.groups ()), {"PRODUCT"; "PRODUCT/deep"; "other"}));
check ("an attribute", strcmp (ds.title, "A title") && isequal (double (ds.number)(:)', [3 4]));
check ("all attributes", strcmp (ds.attributes.("odd-name"), "odd") && isequal (fieldnames (ds.attributes ()), ...
       {"title"; "number"; "odd-name"}));
check ("an attribute of a variable", strcmp (ds.t2m.units, "K") && strcmp (ds.t2m.attributes.long_name, "Temperature at 2 m"));
check ("a name that is no identifier", isequal (ds("2nd-name")(:), int32 ([1; 2; 3])));
check ("a name that is a method's", strcmp (ds("find") (), "found"));
check ("name and dimensions", strcmp (ds.t2m.name (), "t2m") && isequal (ds.t2m.dimensions (), {"longitude"; "time"}));
check ("a group as a member", isequal (ds.PRODUCT.qa_value(2), single (8)) && isequal (ds.PRODUCT.title, "Inner"));
check ("a group by name", isequal (ds.group ("PRODUCT").qa_value(end), single (9)) && isequal (ds.group ("/PRODUCT/deep").x (), int32 (5)));
check ("paths", isequal (ds("PRODUCT/deep/x") (), int32 (5)) && isequal (ds("/PRODUCT/qa_value")(1), single (7))
       && isequal (ds.PRODUCT("deep/x") (), int32 (5)));
check ("variables of a group", isequal (ds.PRODUCT.variables (), {"qa_value"; "deep/x"}));
v = ds.find ("standard_name", "air_temperature");
check ("found by an attribute", strcmp (v.name (), "t2m"));
check ("found by a number", strcmp (ds.find ("valid_range", [0 400]).name (), "t2m"));
check ("found in a group", strcmp (ds.find ("units", "1").name (), "qa_value"));
check ("names by attribute", isequal (ds.variables ("units", "K"), {"t2m"}));
check ("axes of the group", strcmp (ds.lon.name (), "longitude") && strcmp (ds.time.name (), "time"));

check ("texts", isequal (ds.names(:), {"one"; "two"}) && isequal (ds.s(:), {"eins"; "zwei"}) && isequal (size (ds.names), [2 1]));
check ("letters along a dimension of numbers", isequal (ds.code(:), ["a"; "b"; "c"]));
check ("characters as stored", isequal (ds.names.raw(:, 1)', "one\0\0") || isequal (ds.names.raw(1:3, 1)', "one"));
plain = gridio_dataset (path, "texts", false);
check ("texts switched off", isequal (size (plain.names), [5 2]));
check ("labels of values", isequal (ds.quality.labels (ds.quality(:)), {"good"; "worse"; ""}));
check ("labels of masks", isequal (ds.masks.labels ([0 3 4]), {"", "wet, cold", "dark"}));
check ("labels of both", isequal (ds.both.labels (ds.both(:)), {"on"; "high"; "on, low"}));
check ("the table of labels", isequal (ds.quality.labels (), {0, "good"; 1, "bad"; 2, "worse"}));

check_raises ("a name with letters exchanged", "unknownName", @() ds.tm2, ...
              "^no variable or attribute 'tm2'; did you mean t2m\\?\nThere are: time, longitude, t2m");
check_raises ("a name in another case", "unknownName", @() ds.T2M, "did you mean t2m\\?");
check_raises ("a name in a group", "unknownName", @() ds("PRODUCT/qa_valu"), "did you mean (PRODUCT/)?qa_value\\?");
check_raises ("a name of a group", "unknownName", @() ds.group ("PRODUKT"), "did you mean PRODUCT\\?");
check_raises ("an attribute of a variable", "unknownName", @() ds.t2m.unit, "no attribute 'unit' of variable 't2m'; did you mean units\\?");
check_raises ("an attribute's value", "unknownName", @() ds.find ("units", "k"), "did you mean K\\?");
check_raises ("a variable in another group", "unknownName", @() ds("PRODUCT/t2m"), "did you mean /t2m\\?");
check_raises ("an attribute that nothing has", "unknownName", @() ds.find ("colour", "blue"), "no variable has the attribute 'colour'");
check_raises ("find without a value", "badCall", @() ds.find ("units"));
check_raises ("times of what has none", "notATime", @() ds.t2m.text (), "days since");
check_raises ("labels of what has none", "noLabels", @() ds.t2m.labels (3), "flag_meanings");
check_raises ("labels of texts", "badLabels", @() ds.quality.labels ("x"));
check_raises ("braces", "badName", @() ds{1});
check_raises ("a number for a name", "badName", @() ds(1), "ds\\(\"NAME\"\\)");
check_raises ("two names", "badName", @() ds("a", "b"));
check_raises ("an unknown option", "badOption", @() gridio_dataset (path, "singel", true), "did you mean single\\?");
check_raises ("an option that is neither on nor off", "badOption", @() gridio_dataset (path, "single", 7), "true or false");
check_raises ("an unknown mode", "badMode", @() gridio_dataset (path, "append"), "\"write\"");
check_raises ("a file that is no name", "notAFile", @() gridio_dataset (3));

twice = gridio_dataset (made_file (["netcdf made {\ndimensions: n = 2;\nvariables: float a(n); a:units = \"K\"; float b(n); b:units = \"K\";" ...
  "double t1(n); t1:units = \"days since 2000-01-01\"; double t2(n); t2:units = \"days since 2000-01-01\";\n}\n"]));
check_raises ("several variables", "ambiguousName", @() twice.find ("units", "K"), "2 variables have units K: a, b");
check_raises ("several axes", "ambiguousName", @() twice.a.at ("time", "2000"), "may be any of t1, t2");
check_raises ("several axes of the group", "ambiguousName", @() twice.time, "t1, t2");

months = made_file ("netcdf m {dimensions: t = 2; variables: double t(t); t:units = \"months since 2000-01-31\"; float f(t); data: t = 0, 1; f = 1, 2;}");
try
  gridio_dataset (months).t(:);
  check ("months are refused", false);
catch failure
  check ("months are refused", ! isempty (strfind (failure.message, "\"months\" of gridio_dataset")));
end
monthly = gridio_dataset (months, "months", "calendar");
check ("months as steps of the calendar", isequal (monthly.t.text (), {"2000-01-31"; "2000-02-29"}) && isequal (monthly.f.at ("time", "2000-02"), single (2))
       && isequal (monthly.t(2), datenum (2000, 2, 29)));
check ("months as they are", isequal (gridio_dataset (months, "times", false).t(:), [0; 1]));
check_raises ("months in another way", "badOption", @() gridio_dataset (months, "months", "long"));

function files = files_of (call)
  try
    call ();
  catch failure
    files = {failure.stack.file};
  end
end
own = fileparts (file_in_loadpath ("gridio_dataset.m"));
files = [files_of(@() ds.tm2), files_of(@() gridio_dataset ("none.nc")), files_of(@() gridio_help ("none"))];
check ("errors name the places of the script that called", ! isempty (strfind (files{end}, "names_and_attributes")));
check ("and not those of the package", ! any (strncmp (files, own, numel (own))));

for name = {"gridio_dataset", "gridio_variable", "gridio_show", "gridio_read", "gridio_write", "gridio_plot"}
  [~, format] = get_help_text (name{1});
  check (["help of " name{1}], strcmp (format, "texinfo"));
end

shown = evalc ("ds");
for words = {'^ds = dataset .*\.nc \(netCDF-4\)\n', 'time 2 \(unlimited\), longitude 3', '\n  time +time +2000-01-01 \.\.\. 2000-01-02\n', ...
             '\n  longitude +longitude +0 \.\.\. 2 degrees_east\n', '\n  t2m +longitude x time +float +\[K\] Temperature at 2 m\n', ...
             '\("find"\)', '\("2nd-name"\)', '\n  PRODUCT +1 variable\n', '\n  title +A title\n', '\n  number +3, 4\n'}
  check (["the printed dataset has " words{1}], ! isempty (regexp (shown, words{1}, "once")));
end
shown = evalc ("ds.t2m");
for words = {'variable t2m: Temperature at 2 m \[K\]\n', 'longitude 3 x time 2 \(unlimited\)', 'read as (single|double)', 'valid_range +0, 400'}
  check (["the printed variable has " words{1}], ! isempty (regexp (shown, words{1}, "once")));
end
stations = made_file (["netcdf s { dimensions: station = 3; time = 2; variables: float lon(station); lon:units = \"degrees_east\";" ...
                      "int time(time); time:units = \"hours since 2000-01-01\"; int h(station); h:coordinates = \"lon\"; data: lon = 2, 9, -4; time = 5, 6; }"]);
shown = evalc ("gridio_show (stations)");
check ("coordinates without an order are shown by their extremes", ! isempty (strfind (shown, "-4 ... 9 degrees_east\n")));
check ("moments are shown with their minutes", ! isempty (strfind (shown, "2000-01-01 05:00 ... 2000-01-01 06:00\n")));
wide = sprintf ("int v%d(n); ", 1:500);
shown = evalc ("disp (gridio_dataset (made_file ([\"netcdf made {dimensions: n = 2; variables: \" wide \"}\"])))");
check ("many variables are shortened", sum (shown == "\n") < 60 && ! isempty (strfind (shown, "460 more")));
check ("what is shown by name is the same", strcmp (evalc ("gridio_show (path, \"t2m\")"), evalc ("disp (ds.t2m)")));
check ("no control character reaches the screen", ! any (ismember (evalc ("gridio_show (made_file (\"netcdf m {:a = \\\"x\\x1b[2J\\\";}\"))"), "\x1b")));
conclude ();
