% SPDX-License-Identifier: BSD-3-Clause
% What is in a netCDF file?
%   field.m FILE                its format, dimensions and variables
%   field.m FILE VARIABLE ...   size, class, minimum, maximum and mean of each variable named
1;
if (! exist ("gridio"))
  pkg load gridio
endif

% Every element type of the library: its number, its name, and the operation that reads it whole.
function types = elementTypes ()
  table = {"BYTE",   "byte",   "getVarSchar";
           "CHAR",   "char",   "getVarText";
           "SHORT",  "short",  "getVarShort";
           "INT",    "int",    "getVarInt";
           "FLOAT",  "float",  "getVarFloat";
           "DOUBLE", "double", "getVarDouble";
           "UBYTE",  "ubyte",  "getVarUchar";
           "USHORT", "ushort", "getVarUshort";
           "UINT",   "uint",   "getVarUint";
           "INT64",  "int64",  "getVarInt64";
           "UINT64", "uint64", "getVarUint64"};
  for i = 1:rows (table)
    types(i).number = gridio ("parameter", ["NC_" table{i, 1}]);
    types(i).name = table{i, 2};
    types(i).reader = table{i, 3};
  endfor
endfunction

% The row of TYPES for a type number; strings and user-defined types have a name but no reader.
function type = findType (types, number)
  found = [types.number] == number;
  if (any (found))
    type = types(found);
  elseif (number == 12)  % NC_STRING, which has no named constant
    type = struct ("number", number, "name", "string", "reader", "");
  else
    type = struct ("number", number, "name", sprintf ("user type %d", number), "reader", "");
  endif
endfunction

function text = formatText (ncid)
  try
    name = gridio ("inqFormat", ncid);
  catch failure
    if (! strcmp (failure.identifier, "Ovard:gridio:netcdf:unknownNetCDFFormat"))
      rethrow (failure);
    endif
    text = "a format without a name here (such as CDF-5)";
    return;
  end_try_catch
  names = struct ("FORMAT_CLASSIC", "classic", "FORMAT_64BIT", "64-bit offset", ...
                  "FORMAT_NETCDF4", "netCDF-4", ...
                  "FORMAT_NETCDF4_CLASSIC", "netCDF-4 classic model");
  text = names.(name);
endfunction

% Prints rows of text in columns; the first row is the heading, and columns named in ON_THE_RIGHT
% are set flush right.
function printColumns (table, onTheRight)
  for column = 1:columns (table)
    cells = table(:, column);
    width = max (cellfun (@numel, cells));
    for row = 1:rows (table)
      blanksToAdd = blanks (width - numel (cells{row}));
      if (any (column == onTheRight))
        cells{row} = [blanksToAdd cells{row}];
      else
        cells{row} = [cells{row} blanksToAdd];
      endif
    endfor
    table(:, column) = cells;
  endfor
  for row = 1:rows (table)
    puts ([deblank(strjoin (table(row, :), "  ")) "\n"]);
  endfor
endfunction

% A length in the text "3 x 2 x 4"; a scalar has none.
function text = sizeText (lengths)
  text = strjoin (arrayfun (@(n) sprintf ("%d", n), lengths, "UniformOutput", false), " x ");
endfunction

% The shortest decimal text that reads back as the same number.
function text = numberText (value)
  if (isinteger (value))
    text = strtrim (disp (value));  % exact; printf rounds a large uint64
    return;
  endif
  digits = 15:17;
  if (isa (value, "single"))
    digits = 6:9;
  endif
  for d = digits
    text = sprintf ("%.*g", d, value);
    if (cast (str2double (text), class (value)) == value)
      return;
    endif
  endfor
endfunction

function printFile (ncid, file, types)
  printf ("%s\n%s\n", file, formatText (ncid));

  unlimited = gridio ("inqUnlimDims", ncid);
  table = {"dimension", "length", ""};
  for dimid = gridio ("inqDimIDs", ncid, false)
    [name, len] = gridio ("inqDim", ncid, dimid);
    note = "";
    if (any (unlimited == dimid))
      note = "unlimited";
    endif
    table(end + 1, :) = {name, sprintf("%d", len), note};
  endfor
  puts ("\n");
  if (rows (table) > 1)
    printColumns (table, 2);
  else
    puts ("No dimensions in the root group.\n");
  endif

  % Dimensions stand in the order of the array that is read: fastest varying first.
  table = {"variable", "type", "shape", "dimensions"};
  for varid = gridio ("inqVarIDs", ncid)
    [name, xtype, dimids] = gridio ("inqVar", ncid, varid);
    [names, lengths] = deal ({}, []);
    for dimid = dimids
      [names{end + 1}, lengths(end + 1)] = gridio ("inqDim", ncid, dimid);
    endfor
    shape = sizeText (lengths);
    if (isempty (lengths))
      shape = "scalar";
    endif
    table(end + 1, :) = {name, findType(types, xtype).name, shape, strjoin(names, ", ")};
  endfor
  puts ("\n");
  if (rows (table) > 1)
    printColumns (table, []);
  else
    puts ("No variables in the root group; groups below it are not looked into.\n");
  endif
endfunction

function value = average (numbers)
  numbers = double (numbers);
  value = mean (numbers);
  if (isinf (value) && all (isfinite (numbers)))
    value = sum (numbers / numel (numbers));  % the sum alone was too large for a double
  endif
endfunction

% Size, class, minimum, maximum, mean and count of NaN: the cells that describe VALUES.
function cells = statistics (values)
  cells = {sizeText(size (values)), class(values), "-", "-", "-", "-"};
  if (isempty (values))
    return;
  endif
  missing = isnan (values(:));
  cells{6} = sprintf ("%d", sum (missing));
  known = values(! missing);
  if (! isempty (known))
    cells(3:5) = {numberText(min (known)), numberText(max (known)), sprintf("%.10g", average (known))};
  endif
endfunction

% The first line of a text variable without its padding, unprintable characters as "?".
function text = firstLine (values)
  line = values(:, 1).';
  line(line == "\0") = " ";
  line = line(1:find (line != " ", 1, "last"));  % deblank refuses bytes that are not UTF-8
  line(iscntrl (line)) = "?";
  text = sprintf ("\"%s\"", line);
endfunction

function printVariables (ncid, names, types)
  table = {"variable", "size", "class", "minimum", "maximum", "mean", "NaN"};
  remarks = {};
  for i = 1:numel (names)
    varid = gridio ("inqVarID", ncid, names{i});
    [~, xtype] = gridio ("inqVar", ncid, varid);
    type = findType (types, xtype);
    if (isempty (type.reader))
      remarks{end + 1} = sprintf ("%s cannot be read: no operation reads values of type %s", ...
                                  names{i}, type.name);
      continue;
    endif
    values = gridio (type.reader, ncid, varid);
    if (ischar (values))
      table(end + 1, :) = {names{i}, sizeText(size (values)), "char", "-", "-", "-", "-"};
      if (! isempty (values))
        remarks{end + 1} = sprintf ("%s begins %s", names{i}, firstLine (values));
      endif
    else
      table(end + 1, :) = [names(i), statistics(values)];
    endif
  endfor
  if (rows (table) > 1)
    printColumns (table, 4:7);
    puts ("\nValues as stored: no fill value left out, no scale or offset applied.\n");
  endif
  for i = 1:numel (remarks)
    puts ([remarks{i} "\n"]);
  endfor
endfunction

function main (args)
  if (isempty (args))
    error ("usage: field.m FILE [VARIABLE ...]");
  endif
  ncid = gridio ("open", args{1}, "nowrite");
  unwind_protect
    types = elementTypes ();
    if (numel (args) == 1)
      printFile (ncid, args{1}, types);
    else
      printVariables (ncid, args(2:end), types);
    endif
  unwind_protect_cleanup
    gridio ("close", ncid);
  end_unwind_protect
endfunction

% field.m FILE [VARIABLE ...]: what is in a netCDF file, or in some of its variables.

try
  main (argv ());
catch failure
  fprintf (stderr, "field.m: %s\n", failure.message);
  exit (1);
end_try_catch
