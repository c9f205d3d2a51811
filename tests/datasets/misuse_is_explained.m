% SPDX-License-Identifier: BSD-3-Clause
% Broken attributes, wrong calls and odd values: an error or one warning that says what is wrong, and everything else goes on.
1;

function text = warned_by (read)
  [text, identifier] = raised_warning (read);
  if (! isempty (identifier))
    text = [identifier ": " text];
  end
end

path = made_file (["netcdf made {\ndimensions: x = 3; one = 1; none = UNLIMITED; t = 2;\n" ...
  "variables: short text(x); text:scale_factor = \"0.1\"; short two(x); two:_FillValue = -9s; two:missing_value = -9.5, 1e9;\n" ...
  "short more(x); more:scale_factor = 1., 2.; more:_Unsigned = \"maybe\"; string only(one); string alone; double empty(none);\n" ...
  "double date(t); date:units = \"days since 2000-13-01\"; double day(t); day:units = \"days since 2000-01-01\";\n" ...
  "float f(t, x); f:coordinates = \"nothing_like_it\";\n" ...
  "data: text = 1, 2, 3; two = 1, 2, -9; more = 1, 2, 3; only = \"one\"; alone = \"text\"; date = 1, 2; day = 1, NaN;\n" ...
  "f = 1, 2, 3, 4, 5, 6;\n}\n"]);

warned_by (@() gridio_dataset (path).text(:)); # what is parsed here warns of nothing later
ds = gridio_dataset (path);
passed = "Ovard:gridio:dataset:attributeIgnored: ";
reads = {@() ds.text(:), "text.*scale_factor is text"; @() ds.two(2), "two.*missing_value"; @() ds.more.mean (), "more.*(_Unsigned|scale_factor)"};
for k = 1:rows (reads)
  said = warned_by (reads{k,1});
  check (["a warning of " reads{k,2} ": " said], ! isempty (regexp (said, [passed ".*" reads{k,2}], "once")));
  check (["no second one of " reads{k,2}], isempty (warned_by (reads{k,1})));
end
again = gridio_dataset (path);
check ("another dataset warns again", ! isempty (strfind (warned_by (@() again.text(1)), passed)));
raw = gridio_dataset (path);
check ("values as stored do not warn", isempty (warned_by (@() raw.text.raw(:))) && isempty (warned_by (@() raw.f(:))));
check ("the values are those without the attribute", isequal (ds.text(:), int16 ([1; 2; 3])) && isequaln (ds.two(:), [1; 2; NaN]));

check ("texts are in a cell, however few", isequal (ds.only(:), {"one"}) && isequal (ds.only(1), {"one"}));
check ("a text without dimensions is not", isequal (ds.alone(:), "text") && isequal (ds.alone(), "text"));
check ("length", length (ds.f) == 3 && length (ds.empty) == 0 && length (ds.alone) == 1);

check_raises ("units without a date name the variable", "unreadableTime", @() ds.date(:), "variable 'date'.*months are 1 to 12.*raw");
check ("and leave the numbers", isequal (ds.date.raw(:), [1; 2]));
check ("a time that is missing", isequaln (ds.day(:), [datenum(2000, 1, 2); NaN]) && isequal (ds.day.text (){1}, "2000-01-02"));
check ("a coordinate that is not there", isequal (size (ds.f(:,:)), [3 2]));

check_raises ("an index that counts through", "badIndex", @() ds.f(7), "index 1 of variable 'f' must be 6 at most");
check_raises ("an index of a dimension", "badIndex", @() ds.f(4,1), "index 1 \\(x\\)");
check_raises ("no position", "badIndex", @() ds.f(0), "and 0 is not");
check_raises ("no whole position", "badIndex", @() ds.f(1, 1.5), "and 1.5 is not");
check_raises ("no attribute to find", "badCall", @() ds.find (), "standard_name");
check_raises ("an attribute that no variable has", "unknownName", @() ds.find ("standard_name", "air"), "no variable has the attribute");

check_raises ("no file", "badCall", @() gridio_dataset (), "gridio_dataset \\(FILE\\)");
check ("after which datasets are still opened", isequal (gridio_dataset (path).text.raw(1), int16 (1)));
check_raises ("no variable", "badCall", @() gridio_variable ());

% Many datasets of one file, and one whose file is deleted.
many = cell (1, 500);
for k = 1:500
  many{k} = gridio_dataset (path);
end
check ("500 datasets", isequal (many{500}.f(2), single (2)) && numel (gridio_open_files ()) >= 500);
many = {};
clear again raw ds reads
check ("are closed", isempty (gridio_open_files ()));
copied = [tempname() ".nc"];
copyfile (path, copied);
ds = gridio_dataset (copied);
delete (copied);
check ("a deleted file stays readable while it is open", isequal (ds.f(2), single (2)));
clear ds
try
  gridio_dataset (copied);
  check ("and then is not", false);
catch failure
  check ("and then is not", ! isempty (strfind (failure.message, "There is no file")));
end
conclude ();
