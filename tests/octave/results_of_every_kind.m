% SPDX-License-Identifier: BSD-3-Clause
% Class, shape and value of results, and how many of them a call may request.
suffixes = {"Double", "double"; "Float", "single"; "Int64", "int64"; "Uint64", "uint64"; "Int", "int32"
            "Uint", "uint32"; "Short", "int16"; "Ushort", "uint16"; "Schar", "int8"; "Uchar", "uint8"};
[ncid, path] = new_file ("netcdf4");
a = gridio ("defDim", ncid, "a", 2);
b = gridio ("defDim", ncid, "b", 3);
c = gridio ("defDim", ncid, "c", 4);
empty = gridio ("defDim", ncid, "none", gridio ("parameter", "NC_UNLIMITED"));
real = gridio ("parameter", "NC_DOUBLE");
cube = gridio ("defVar", ncid, "cube", real, [a b c]);
scalar = gridio ("defVar", ncid, "scalar", real, []);
row = gridio ("defVar", ncid, "row", real, c);
records = gridio ("defVar", ncid, "records", real, [a empty]);
gridio ("endDef", ncid);
values = reshape (1:24, 2, 3, 4);
gridio ("putVarDouble", ncid, cube, values);
gridio ("putVarDouble", ncid, scalar, 42);
gridio ("putVarDouble", ncid, row, 1:4);
for k = 1:rows (suffixes)
  suffix = suffixes{k, 1};
  read = gridio (["getVar" suffix], ncid, cube);
  check (["class of getVar" suffix], strcmp (class (read), suffixes{k, 2}));
  check (["shape and values of getVar" suffix], isequal (read, feval (suffixes{k, 2}, values)));
  one = gridio (["getVar1" suffix], ncid, cube, [1 2 3]);
  check (["one value of getVar1" suffix], isequal (one, feval (suffixes{k, 2}, 24)));
  check (["class of getVar1" suffix], strcmp (class (one), suffixes{k, 2}));
  one = gridio (["getVar" suffix], ncid, scalar);
  check (["a scalar variable by getVar" suffix], isequal (size (one), [1 1]) && one == 42);
  part = gridio (["getVara" suffix], ncid, cube, [0 1 2], [2 1 1]);
  check (["part of getVara" suffix], isequal (part, feval (suffixes{k, 2}, values(:, 2, 3))));
  none = gridio (["getVar" suffix], ncid, records);
  check (["no records by getVar" suffix],
         isequal (size (none), [0 0]) && strcmp (class (none), suffixes{k, 2}));
end
check ("one dimension reads as a column", isequal (gridio ("getVarDouble", ncid, row), (1:4).'));

% A result belongs to the script: writing to it changes nothing else.
first = gridio ("getVarDouble", ncid, cube);
copy = first;
first(1) = -1;
check ("results are copied on writing", copy(1) == 1 && gridio ("getVarDouble", ncid, cube)(1) == 1);

[name, xtype, dimids, natts] = gridio ("inqVar", ncid, cube);
check ("four results", strcmp (name, "cube") && xtype == 6 && natts == 0);
check ("a list is a row of double", isequal (dimids, [a b c]) && isa (dimids, "double"));
check ("one of four results", strcmp (gridio ("inqVar", ncid, cube), "cube"));
[~, xtype] = gridio ("inqVar", ncid, cube);
check ("the second of four results", xtype == 6);
gridio ("inqVar", ncid, cube);
check ("no result asked for sets ans", strcmp (ans, "cube"));
tooMany = false;
try
  [a1, a2, a3, a4, a5] = gridio ("inqVar", ncid, cube);
catch failure
  tooMany = ! isempty (strfind (failure.message, "element number 5 undefined"));
end
check ("a fifth result is the interpreter's own error", tooMany);
none = false;
try
  nothing = gridio ("sync", ncid);
catch failure
  none = true;
end
check ("an operation without results has none", none);
[~, ~, ~, natts] = gridio ("inqVar", ncid, scalar);
[~, ~, dimids] = gridio ("inqVar", ncid, scalar);
check ("an empty list is 0-by-0 double", isequal (size (dimids), [0 0]) && isa (dimids, "double"));

names = gridio ("getConstantNames");
check ("a list of names is a column of cells", iscellstr (names) && isequal (size (names), [114 1]));
check ("each name is a row", all (cellfun (@rows, names) == 1));
typed = {"NC_FILL_CHAR", "char"; "NC_FILL_BYTE", "int8"; "NC_FILL_FLOAT", "single"
         "NC_FILL_UINT64", "uint64"; "NC_FILL_DOUBLE", "double"; "NC_GLOBAL", "double"};
for k = 1:rows (typed)
  value = gridio ("parameter", typed{k, 1});
  check (["class of " typed{k, 1}], strcmp (class (value), typed{k, 2}) && isscalar (value));
end
[~, noFill] = deal (0, gridio ("inqVarFill", ncid, cube));
check ("a flag is logical", islogical (noFill) && isscalar (noFill));

failure = check_error ("a failure of the library", "netcdf:libraryFailure", "getVarDouble", ncid, 99);
check ("its text names operation, status and reason",
       ! isempty (strfind (failure.message, "getVarDouble: NC_ENOTVAR: ")));
gridio ("close", ncid);
conclude ();
