% SPDX-License-Identifier: BSD-3-Clause
% Text passes byte by byte in both directions, whatever its shape, quotes and encoding.
all = char (0:255);
[ncid, path] = new_file ();
x = gridio ("defDim", ncid, "x", 256);
gridio ("defDim", ncid, 'single', 1);
gridio ("defDim", ncid, "double\tquoted"(1:6), 1);
gridio ("defDim", ncid, ["c"; "o"; "l"], 1);
gridio ("defDim", ncid, ["ac"; "bd"], 1);
gridio ("defDim", ncid, "größe", 2);
gridio ("defDim", ncid, repmat ("n", 1, 200), 1);
v = gridio ("defVar", ncid, "t", gridio ("parameter", "NC_CHAR"), x);
gridio ("putAttText", ncid, v, "empty", '');
gridio ("putAttText", ncid, v, "all", all(2:end));  % reading stops at a NUL
gridio ("putAttText", ncid, v, "rows", ["ac"; "bd"]);
gridio ("endDef", ncid);
gridio ("putVarText", ncid, v, all);

read = gridio ("getVarText", ncid, v);
check ("every byte comes back from a variable", isequal (read, all.') && ischar (read));
check ("every byte but NUL comes back from an attribute",
       isequal (gridio ("getAttText", ncid, v, "all"), all(2:end)));
check ("text is taken in storage order", strcmp (gridio ("getAttText", ncid, v, "rows"), "abcd"));
check ("an empty text is char", ischar (gridio ("getAttText", ncid, v, "empty")));
check ("one character", isequal (gridio ("getVar1Text", ncid, v, 200), char (200)));
names = {"x", "single", "double", "col", "abcd", "größe", repmat("n", 1, 200)};
for k = 1:numel (names)
  name = gridio ("inqDim", ncid, k - 1);
  check (["name " names{k}], isequal (name, names{k}) && rows (name) == 1);
  check (["found by name " names{k}], gridio ("inqDimID", ncid, names{k}) == k - 1);
end
check ("an operation in single quotes", gridio ('inqDimID', ncid, "x") == 0);
check ("an operation as a column", gridio ("inqDimID"(:), ncid, "x") == 0);
name = gridio ("inqGrpName", ncid);
check ("a name result is a row of char", ischar (name) && strcmp (name, "/"));
gridio ("close", ncid);

[~, header] = system (["ncdump -h " path]);
check ("ncdump shows the name in UTF-8", ! isempty (strfind (header, "größe = 2")));
file = fopen (path, "r");
bytes = fread (file, Inf, "uint8=>char").';
fclose (file);
check ("the file holds the bytes of the variable as they are", numel (strfind (bytes, all)) == 1);

% Long texts leave the memory kept for short ones.
long = repmat ("0123456789abcdef", 1, 4096);
failure = check_error ("a long operation name", "netcdf:unrecognizedOperation", long);
check ("the message holds it whole", ! isempty (strfind (failure.message, long)));
check_error ("a long path", "netcdf:libraryFailure", "open", ["/nowhere/" long], "nowrite");
failure = check_error ("percent signs are text", "netcdf:unrecognizedOperation", "%s%n%d");
check ("the message holds them", ! isempty (strfind (failure.message, "%s%n%d")));
conclude ();
