% SPDX-License-Identifier: BSD-3-Clause
% The header of a netCDF file as CDL, line by line what "ncdump -h" prints.
%   describe.m FILE       groups, dimensions, variables and attributes
%   describe.m FILE -s    also how the variables are stored, as special attributes (ncdump -hs)
%
% What no operation of gridio reads stands in a comment instead: the values of string attributes,
% all that is of a user-defined type, and text behind a NUL. With -s, the byte order and filters
% other than deflate, shuffle and checksum are not known. Control characters are escaped as ncdump
% does, and those beyond ASCII (C1) too, which ncdump sends to the terminal.
1;
if (! exist ("gridio"))
  pkg load gridio
endif
addpath (fullfile (fileparts (mfilename ("fullpath")), "shared"));

function main (args)
  storage = strcmp (args, "-s");
  if (numel (args) - sum (storage) != 1)
    error ("usage: describe.m FILE [-s]");
  endif
  file = args{! storage};
  ncid = gridio ("open", file, "nowrite");
  unwind_protect
    printFile (ncid, file, any (storage));
  unwind_protect_cleanup
    gridio ("close", ncid);
  end_unwind_protect
endfunction

function printFile (ncid, file, withStorage)
  [~, name, extension] = fileparts (file);
  format = fileFormat (ncid);
  context = struct ("format", format, "netcdf4", strncmp (format, "netCDF-4", 8), ...
                    "storage", withStorage);
  printf ("netcdf %s {\n", escapeName (name));
  printGroup (ncid, 0, context);
  puts ("}\n");
  if (withStorage && context.netcdf4)
    puts ("// Not known: byte order, and filters other than deflate, shuffle and checksum.\n");
  endif
endfunction

% What a group holds; DEPTH is 0 for the root group.
function printGroup (ncid, depth, context)
  indent = blanks (2 * depth);
  printDimensions (ncid, indent);
  printVariables (ncid, indent, context);
  printGroupAttributes (ncid, depth, indent, context);
  if (! context.netcdf4)
    return;
  endif
  for group = gridio ("inqGrps", ncid)
    name = escapeName (gridio ("inqGrpName", group));
    printf ("\n%sgroup: %s {\n", indent, name);
    printGroup (group, depth + 1, context);
    printf ("%s  } // group %s\n", indent, name);
  endfor
endfunction

function printDimensions (ncid, indent)
  dimids = gridio ("inqDimIDs", ncid, false);
  if (! isempty (dimids))
    printf ("%sdimensions:\n", indent);
  endif
  unlimited = gridio ("inqUnlimDims", ncid);
  for dimid = dimids
    [name, len] = gridio ("inqDim", ncid, dimid);
    if (any (unlimited == dimid))
      printf ("%s\t%s = UNLIMITED ; // (%d currently)\n", indent, escapeName (name), len);
    else
      printf ("%s\t%s = %d ;\n", indent, escapeName (name), len);
    endif
  endfor
endfunction

function printVariables (ncid, indent, context)
  varids = gridio ("inqVarIDs", ncid);
  if (! isempty (varids))
    printf ("%svariables:\n", indent);
  endif
  for varid = varids
    [name, xtype, dimids, natts] = gridio ("inqVar", ncid, varid);
    name = escapeName (name);
    type = elementType (xtype);
    [comment, note] = deal ("");
    if (isUserDefined (type))  % the type's own declaration is missing, so this cannot be CDL
      comment = "// ";
      note = " (a type that cannot be described)";
    endif
    dimensions = "";
    if (! isempty (dimids))  % CDL lists the slowest varying dimension first, gridio last
      names = arrayfun (@(dimid) dimensionPath (ncid, dimid), fliplr (dimids), ...
                        "UniformOutput", false);
      dimensions = ["(" strjoin(names, ", ") ")"];
    endif
    printf ("%s\t%s%s %s%s ;%s\n", indent, comment, type.name, name, dimensions, note);
    printAttributes (ncid, varid, natts, [indent "\t\t"], comment, name, context);
    if (context.storage && context.netcdf4)
      printStorage (ncid, varid, type, [indent "\t\t"], comment, name);
    endif
  endfor
endfunction

function printGroupAttributes (ncid, depth, indent, context)
  NC_GLOBAL = gridio ("parameter", "NC_GLOBAL");
  [~, ~, natts] = gridio ("inq", ncid);
  if (natts > 0 || context.storage)
    titles = {"global", "group"};
    printf ("\n%s// %s attributes:\n", indent, titles{1 + (depth > 0)});
  endif
  printAttributes (ncid, NC_GLOBAL, natts, [indent "\t\t"], "", "", context);
  if (! context.storage || depth > 0)
    return;
  endif
  if (context.netcdf4)
    % These three are not listed among the attributes, but can be read by their names. A file
    % that another library wrote lacks the first.
    try
      printf ("\t\t:_NCProperties = %s ;\n", ...
              quoted (gridio ("getAttText", ncid, NC_GLOBAL, "_NCProperties"), context));
    catch failure
      if (isempty (strfind (failure.message, "NC_ENOTATT")))
        rethrow (failure);
      endif
    end_try_catch
    printf ("\t\t:_SuperblockVersion = %d ;\n", ...
            gridio ("getAttInt", ncid, NC_GLOBAL, "_SuperblockVersion"));
    printf ("\t\t:_IsNetcdf4 = %d ;\n", gridio ("getAttInt", ncid, NC_GLOBAL, "_IsNetcdf4"));
  endif
  printf ("\t\t:_Format = \"%s\" ;\n", context.format);
endfunction

% The attributes of a variable, or of a group if VARID is NC_GLOBAL and VARIABLE is empty.
function printAttributes (ncid, varid, natts, indent, comment, variable, context)
  for attnum = 0:natts - 1
    attribute = gridio ("inqAttName", ncid, varid, attnum);
    [xtype, len] = gridio ("inqAtt", ncid, varid, attribute);
    type = elementType (xtype);
    name = [variable ":" escapeName(attribute)];
    if (isempty (type.operation))
      printf ("%s// %s %s = ... ; (values that cannot be read)\n", indent, type.name, name);
      continue;
    endif
    values = gridio (["getAtt" type.operation], ncid, varid, attribute);
    note = "";
    if (ischar (values) && len > numel (values) + 1)
      note = sprintf (" // %d of %d bytes: text can be read up to its first NUL only", ...
                      numel (values), len);
    endif
    printf ("%s%s%s = %s ;%s\n", indent, comment, name, valueText (values, type, context), note);
  endfor
endfunction

% How a variable of a netCDF-4 file is stored.
function printStorage (ncid, varid, type, indent, comment, variable)
  start = [indent comment variable ":"];
  try
    [storage, sizes] = gridio ("inqVarChunking", ncid, varid);
    printf ("%s_Storage = \"%s\" ;\n", start, storage);
    if (! isempty (sizes))
      sizes = arrayfun (@(n) sprintf ("%d", n), fliplr (sizes), "UniformOutput", false);
      printf ("%s_ChunkSizes = %s ;\n", start, strjoin (sizes, ", "));
    endif
  catch failure
    if (! strcmp (failure.identifier, "Ovard:gridio:netcdf:unrecognizedChunkingCode"))
      rethrow (failure);
    endif
    printf ("%s// %s:_Storage = ... ; (neither chunked nor contiguous)\n", indent, variable);
  end_try_catch

  if (strcmp (gridio ("inqVarFletcher32", ncid, varid), "FLETCHER32"))
    printf ("%s_Fletcher32 = \"true\" ;\n", start);
  endif
  [shuffle, deflate, level] = gridio ("inqVarDeflate", ncid, varid);
  if (shuffle)
    printf ("%s_Shuffle = \"true\" ;\n", start);
  endif
  if (deflate)
    printf ("%s_DeflateLevel = %d ;\n", start, level);
  endif
  if (! isempty (type.operation) && gridio ("inqVarFill", ncid, varid))
    printf ("%s_NoFill = \"true\" ;\n", start);
  endif
endfunction

% A dimension's name as seen from a group: with its path if a nearer one has the same name.
function path = dimensionPath (ncid, dimid)
  name = gridio ("inqDim", ncid, dimid);
  path = escapeName (name);
  if (gridio ("inqDimID", ncid, name) == dimid)
    return;
  endif
  group = ncid;
  while (! any (gridio ("inqDimIDs", group, false) == dimid))
    group = gridio ("inqGrpParent", group);
  endwhile
  parents = strsplit (gridio ("inqGrpNameFull", group), "/");
  parents = parents(! cellfun (@isempty, parents));
  path = ["/" strjoin([cellfun(@escapeName, parents, "UniformOutput", false), {path}], "/")];
endfunction

function yes = isUserDefined (type)
  yes = strncmp (type.name, "user_type_", 10);
endfunction

% A name as CDL writes it: special characters behind a backslash, control characters as numbers.
function text = escapeName (name)
  text = "";
  control = isControl (name);
  for k = 1:numel (name)
    c = name(k);
    if (control(k))
      text = [text sprintf("\\%%%02x", c)];
    elseif (any (c == " !\"#$&'()*,:;<=>?[\\]^`{|}~"))
      text = [text "\\" c];
    else
      text = [text c];
    endif
  endfor
  if (! isempty (name) && isdigit (name(1)))
    text = ["\\" text];
  endif
endfunction

function text = valueText (values, type, context)
  if (ischar (values))
    text = quoted (values, context);
  elseif (isempty (values))
    text = "\"\"";  % as ncdump: an attribute without values, of whatever type
  else
    texts = arrayfun (@numberText, values, "UniformOutput", false);
    text = strjoin (strcat (texts, type.suffix), ", ");
  endif
endfunction

function text = quoted (text, context)
  text = strrep (text, "\\", "\\\\");
  escapes = {"\b", "\\b"; "\f", "\\f"; "\r", "\\r"; "\t", "\\t"; "\v", "\\v"; "'", "\\'"; "\"", "\\\""};
  for escape = escapes'
    text = strrep (text, escape{1}, escape{2});
  endfor
  control = isControl (text) & text != "\n";
  if (any (control))
    pieces = num2cell (text);
    pieces(control) = arrayfun (@(c) sprintf ("\\%03o", c), text(control), "UniformOutput", false);
    text = [pieces{:}];
  endif
  % Several texts in a row are one text in the classic formats, but a list of strings in netCDF-4.
  lineBreak = "\\n\",\n\t\t\t\"";
  if (strcmp (context.format, "netCDF-4"))
    lineBreak = "\\n";
  endif
  text = ["\"" strrep(text, "\n", lineBreak) "\""];
endfunction

function text = numberText (value)
  if (isa (value, "int64") || isa (value, "uint64"))
    text = strtrim (disp (value));  % exact; printf goes through double
  elseif (isinteger (value))
    text = sprintf ("%d", value);
  elseif (isnan (value))
    text = "NaN";
  elseif (isinf (value))
    text = {"Infinity", "-Infinity"}{1 + (value < 0)};
  else
    digits = merge (isa (value, "single"), 7, 15);
    text = regexprep (sprintf ("%#.*g", digits, value), '\.(\d*?)0+(?=e|$)', '.$1');
  endif
endfunction

% describe.m FILE [-s]: prints the header of a netCDF file as CDL, with -s also the storage.

try
  main (argv ());
catch failure
  fprintf (stderr, "describe.m: %s\n", failure.message);
  exit (1);
end_try_catch
